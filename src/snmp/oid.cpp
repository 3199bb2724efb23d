// SPDX-License-Identifier: MIT
#include "snmp/oid.h"

#include "base/numbers.h"

#include <algorithm>

namespace onudesk {

std::optional<Oid> Oid::parse(std::string_view text) {
    if (text.empty()) {
        return Oid();
    }
    text.remove_prefix(text.starts_with('.') ? 1 : 0);
    Oid oid;
    for (bool more = true; more;) {
        const auto dot = std::min(text.find('.'), text.size());
        const auto arc = parseNumber<Arc>(text.substr(0, dot));
        if (!arc || oid.size() == kMaxArcs) {
            return std::nullopt;
        }
        oid.arcs_.push_back(*arc);
        more = dot < text.size();
        text.remove_prefix(more ? dot + 1 : dot);
    }
    return oid;
}

std::optional<Oid> Oid::parseWhole(std::string_view text) {
    std::optional<Oid> oid = parse(text);
    const bool whole = oid && !text.starts_with('.') && oid->size() >= 2 && oid->arcs_[0] <= 2 &&
                       (oid->arcs_[0] == 2 || oid->arcs_[1] <= 39);
    return whole ? oid : std::nullopt;
}

std::string Oid::text() const {
    std::string text;
    for (const Arc arc : arcs_) {
        text += (text.empty() ? "" : ".") + std::to_string(arc);
    }
    return text;
}

bool Oid::startsWith(const Oid& prefix) const {
    return size() >= prefix.size() &&
           std::equal(prefix.arcs_.begin(), prefix.arcs_.end(), arcs_.begin());
}

Oid Oid::head(std::size_t count) const {
    return Oid(std::vector(arcs_.begin(), arcs_.begin() + static_cast<std::ptrdiff_t>(count)));
}

Oid Oid::tail(std::size_t count) const {
    return Oid(std::vector(arcs_.begin() + static_cast<std::ptrdiff_t>(count), arcs_.end()));
}

Oid Oid::joined(const Oid& rest) const {
    Oid oid = *this;
    oid.arcs_.insert(oid.arcs_.end(), rest.arcs_.begin(), rest.arcs_.end());
    return oid;
}

} // namespace onudesk
