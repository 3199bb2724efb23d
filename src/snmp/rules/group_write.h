// SPDX-License-Identifier: MIT
#pragma once

#include "snmp/value.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace onudesk {

// What one SET writes to one instance of a group. Types, lengths and ranges were checked.
class GroupWrite {
public:
    GroupWrite(std::string model, Oid instance)
        : model_(std::move(model)), instance_(std::move(instance)) {}

    // The name of the group's model.
    [[nodiscard]] const std::string& model() const { return model_; }
    // As in 1.2.5.1: what follows the columns of the bindings.
    [[nodiscard]] const Oid& instance() const { return instance_; }
    // The ONU: the first three numbers.
    [[nodiscard]] Oid onu() const { return instance_.head(3); }

    void take(const std::string& object, const Value& value) { values_[object] = value; }
    // Null when the SET does not write the object.
    [[nodiscard]] const Value* find(std::string_view object) const;
    [[nodiscard]] std::optional<std::int64_t> number(std::string_view object) const;
    [[nodiscard]] std::optional<std::string> bytes(std::string_view object) const;

private:
    std::string model_;
    Oid instance_;
    std::map<std::string, Value, std::less<>> values_; // by object
};

} // namespace onudesk
