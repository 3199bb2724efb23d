// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace onudesk {

// An object identifier (RFC 2578), or a part of one: at most 128 arcs of 32 bits, ordered as SNMP
// orders them (arc by arc as numbers, a prefix before what it begins; RFC 3416).
class Oid {
public:
    using Arc = std::uint32_t;
    static constexpr std::size_t kMaxArcs = 128;

    Oid() = default;
    Oid(std::initializer_list<Arc> arcs) : arcs_(arcs) {}
    explicit Oid(std::vector<Arc> arcs) : arcs_(std::move(arcs)) {}
    // Arcs in decimal, joined by single dots, with or without a leading dot; the empty text has no
    // arcs. Nothing when the text is anything else or has too many arcs.
    [[nodiscard]] static std::optional<Oid> parse(std::string_view text);
    // The same for whole identifiers, without a leading dot: 2 arcs or more, the first at most 2,
    // the second at most 39 below 0 and 1.
    [[nodiscard]] static std::optional<Oid> parseWhole(std::string_view text);

    // Without a leading dot.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] const std::vector<Arc>& arcs() const { return arcs_; }
    [[nodiscard]] std::size_t size() const { return arcs_.size(); }
    // The last arc; there must be one.
    [[nodiscard]] Arc last() const { return arcs_.back(); }
    // True for the prefix itself, too.
    [[nodiscard]] bool startsWith(const Oid& prefix) const;
    // The first `count` arcs, and what follows them; `count` is at most size().
    [[nodiscard]] Oid head(std::size_t count) const;
    [[nodiscard]] Oid tail(std::size_t count) const;
    // This OID followed by the arcs of the other.
    [[nodiscard]] Oid joined(const Oid& rest) const;

    friend bool operator==(const Oid& left, const Oid& right) = default;
    // The check takes the generated comparison with 0 for one with a pointer.
    friend auto operator<=>(const Oid& left, // NOLINTNEXTLINE(modernize-use-nullptr)
                            const Oid& right) = default;

private:
    std::vector<Arc> arcs_;
};

} // namespace onudesk
