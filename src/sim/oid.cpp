// SPDX-License-Identifier: MIT
#include "sim/oid.h"

#include "snmp/oid.h"

namespace onudesk::sim {

std::optional<Oid> Oid::parse(std::string_view text) {
    std::optional<std::vector<Part>> parts = parseOid(text);
    const bool good = parts && !text.starts_with('.') && parts->size() >= 2 && (*parts)[0] <= 2 &&
                      ((*parts)[0] == 2 || (*parts)[1] <= 39);
    return good ? std::optional(Oid(std::move(*parts))) : std::nullopt;
}

std::string Oid::text() const {
    return formatOid(parts_);
}

bool Oid::startsWith(const Oid& prefix) const {
    return onudesk::startsWith(parts_, prefix.parts_);
}

Oid Oid::head(std::size_t count) const {
    return Oid({parts_.begin(), parts_.begin() + static_cast<std::ptrdiff_t>(count)});
}

Oid Oid::tail(std::size_t count) const {
    return Oid(onudesk::tail(parts_, count));
}

Oid Oid::joined(const Oid& rest) const {
    return Oid(onudesk::joined(parts_, rest.parts_));
}

} // namespace onudesk::sim
