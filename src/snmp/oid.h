// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// An object identifier (RFC 2578): at most 128 arcs of 32 bits each. Ordered as agents order them.
using Oid = std::vector<std::uint32_t>;

inline constexpr std::size_t kMaxOidArcs = 128;

// Arcs in decimal, joined by single dots, with or without a leading dot; the empty text has no
// arcs. Nothing when the text is anything else or has too many arcs.
[[nodiscard]] std::optional<Oid> parseOid(std::string_view text);
// Without a leading dot.
[[nodiscard]] std::string formatOid(const Oid& oid);

[[nodiscard]] bool startsWith(const Oid& oid, const Oid& prefix);
[[nodiscard]] Oid joined(const Oid& front, const Oid& back);
// What follows the first `arcs` arcs, of which there must be as many.
[[nodiscard]] Oid tail(const Oid& oid, std::size_t arcs);

} // namespace onudesk
