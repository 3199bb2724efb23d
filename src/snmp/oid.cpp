// SPDX-License-Identifier: MIT
#include "snmp/oid.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace onudesk {

std::optional<Oid> parseOid(std::string_view text) {
    Oid oid;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (text.empty()) {
            return std::nullopt;
        }
    }
    while (!text.empty()) {
        std::uint32_t arc = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), arc);
        if (error != std::errc() || oid.size() == kMaxOidArcs) {
            return std::nullopt;
        }
        oid.push_back(arc);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.empty()) {
            break;
        }
        if (text.front() != '.' || text.size() == 1) {
            return std::nullopt;
        }
        text.remove_prefix(1);
    }
    return oid;
}

std::string formatOid(const Oid& oid) {
    std::string text;
    for (const std::uint32_t arc : oid) {
        text += (text.empty() ? "" : ".") + std::to_string(arc);
    }
    return text;
}

bool startsWith(const Oid& oid, const Oid& prefix) {
    return oid.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), oid.begin());
}

Oid joined(const Oid& front, const Oid& back) {
    Oid oid = front;
    oid.insert(oid.end(), back.begin(), back.end());
    return oid;
}

Oid tail(const Oid& oid, std::size_t arcs) {
    return {std::next(oid.begin(), static_cast<std::ptrdiff_t>(arcs)), oid.end()};
}

} // namespace onudesk
