// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace onudesk::sim {

// An object identifier: at most 128 parts of 32 bits, ordered as SNMP orders them (part by part as
// numbers, a prefix before what it begins; RFC 3416).
class Oid {
public:
    using Part = std::uint32_t;
    static constexpr std::size_t kMaxParts = 128;

    Oid() = default;
    explicit Oid(std::vector<Part> parts) : parts_(std::move(parts)) {}
    // Reads dotted decimal without a leading dot, as in "1.3.6.1". Nothing unless it has 2 to 128
    // parts, the first at most 2, the second at most 39 below 0 and 1.
    [[nodiscard]] static std::optional<Oid> parse(std::string_view text);

    [[nodiscard]] std::string text() const;
    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }
    [[nodiscard]] std::size_t size() const { return parts_.size(); }
    // True for the prefix itself, too.
    [[nodiscard]] bool startsWith(const Oid& prefix) const;
    // The first `count` parts, and what follows them; `count` is at most size().
    [[nodiscard]] Oid head(std::size_t count) const;
    [[nodiscard]] Oid tail(std::size_t count) const;
    // This OID followed by the parts of the other.
    [[nodiscard]] Oid joined(const Oid& rest) const;

    friend bool operator==(const Oid& left, const Oid& right) = default;
    friend bool operator<(const Oid& left, const Oid& right) { return left.parts_ < right.parts_; }

private:
    std::vector<Part> parts_;
};

} // namespace onudesk::sim
