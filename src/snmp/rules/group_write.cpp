// SPDX-License-Identifier: MIT
#include "snmp/rules/group_write.h"

namespace onudesk {

const Value* GroupWrite::find(std::string_view object) const {
    const auto found = values_.find(object);
    return found == values_.end() ? nullptr : &found->second;
}

std::optional<std::int64_t> GroupWrite::number(std::string_view object) const {
    const Value* value = find(object);
    return value == nullptr ? std::nullopt : numberOf(*value);
}

std::optional<std::string> GroupWrite::bytes(std::string_view object) const {
    const Value* value = find(object);
    const std::string* bytes = value == nullptr ? nullptr : bytesOf(*value);
    return bytes == nullptr ? std::nullopt : std::optional(*bytes);
}

} // namespace onudesk
