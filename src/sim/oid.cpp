// SPDX-License-Identifier: MIT
#include "sim/oid.h"

#include <algorithm>
#include <charconv>

namespace onudesk::sim {

std::optional<Oid> Oid::parse(std::string_view text) {
    std::vector<Part> parts;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (true) {
        Part part = 0;
        const auto [next, error] = std::from_chars(at, end, part);
        if (error != std::errc() || parts.size() == kMaxParts) {
            return std::nullopt;
        }
        parts.push_back(part);
        if (next == end) {
            break;
        }
        if (*next != '.') {
            return std::nullopt;
        }
        at = next + 1;
    }
    if (parts.size() < 2 || parts[0] > 2 || (parts[0] < 2 && parts[1] > 39)) {
        return std::nullopt;
    }
    return Oid(std::move(parts));
}

std::string Oid::text() const {
    std::string text;
    for (const Part part : parts_) {
        text += (text.empty() ? "" : ".") + std::to_string(part);
    }
    return text;
}

bool Oid::startsWith(const Oid& prefix) const {
    return prefix.size() <= size() &&
           std::equal(prefix.parts_.begin(), prefix.parts_.end(), parts_.begin());
}

Oid Oid::head(std::size_t count) const {
    return Oid({parts_.begin(), parts_.begin() + static_cast<std::ptrdiff_t>(count)});
}

Oid Oid::tail(std::size_t count) const {
    return Oid({parts_.begin() + static_cast<std::ptrdiff_t>(count), parts_.end()});
}

Oid Oid::joined(const Oid& rest) const {
    std::vector<Part> parts = parts_;
    parts.insert(parts.end(), rest.parts_.begin(), rest.parts_.end());
    return Oid(std::move(parts));
}

} // namespace onudesk::sim
