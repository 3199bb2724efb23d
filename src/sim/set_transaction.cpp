// SPDX-License-Identifier: MIT
#include "sim/set_transaction.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace onudesk::sim {

namespace {

Value rowValue(RowStatus status) {
    return integerValue(static_cast<std::int64_t>(status));
}

std::optional<std::int64_t> numberOf(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value.content)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::uint64_t>(&value.content)) {
        return static_cast<std::int64_t>(std::min<std::uint64_t>(*number, INT64_MAX));
    }
    return std::nullopt;
}

bool creates(const Value& value) {
    return value == rowValue(RowStatus::createAndGo) || value == rowValue(RowStatus::createAndWait);
}

// What a new row holds where nothing was written; nothing for types without a natural start.
std::optional<Value> defaultValue(const ObjectSchema& schema) {
    const auto tag = static_cast<Tag>(schema.object.type);
    const NumberRange range = schema.range.value_or(NumberRange{0, 0});
    const std::int64_t number = range.contains(0) ? 0 : range.low;
    const auto length = static_cast<std::size_t>(schema.size ? schema.size->low : 0);
    switch (tag) {
    case Tag::integer:
        return integerValue(number);
    case Tag::counter32:
    case Tag::gauge32:
    case Tag::timeTicks:
    case Tag::counter64:
        return Value{tag, static_cast<std::uint64_t>(number)};
    case Tag::octetString:
    case Tag::opaque:
        return Value{tag, std::string(length, '\0')};
    case Tag::ipAddress:
        return Value{tag, std::string(4, '\0')};
    case Tag::objectId:
        return Value{tag, Oid({0, 0})};
    case Tag::null:
        break;
    }
    return std::nullopt;
}

// An address of zeros is what a device shows where none was given.
bool isBlank(const Value& value) {
    const auto* bytes = std::get_if<std::string>(&value.content);
    return bytes != nullptr && bytes->find_first_not_of('\0') == std::string::npos;
}

} // namespace

const Value* SetTransaction::find(const Oid& oid) const {
    const auto changed = changes_.find(oid);
    if (changed == changes_.end()) {
        return store_.find(oid);
    }
    return changed->second ? &*changed->second : nullptr;
}

bool SetTransaction::holdsRow(const Oid& oid, RowStatus status) const {
    const Value* value = find(oid);
    return value != nullptr && *value == rowValue(status);
}

std::optional<SetStatus> SetTransaction::add(std::size_t index) {
    const Binding& binding = bindings_[index];
    const ObjectRule* rule = store_.objects().find(binding.oid);
    if (rule == nullptr || rule->schema.access == ObjectAccess::readOnly) {
        return SetStatus::notWritable;
    }
    if (const auto failure = checkValue(*rule, binding)) {
        return failure;
    }
    if (rule->isRowStatus()) {
        return setRowStatus(*rule, binding);
    }
    if (rule->schema.access == ObjectAccess::writeOnly) {
        return std::nullopt;
    }
    if (!exists(binding.oid) && !mayCreate(*rule, rule->instanceOf(binding.oid), index)) {
        return SetStatus::noCreation;
    }
    changes_[binding.oid] = binding.value;
    return std::nullopt;
}

// In the order of RFC 3416, section 4.2.5.
std::optional<SetStatus> SetTransaction::checkValue(const ObjectRule& rule,
                                                    const Binding& binding) const {
    const ObjectSchema& schema = rule.schema;
    const Value* held = find(binding.oid);
    const auto stated = static_cast<Tag>(schema.object.type);
    const Tag wanted = schema.object.type != 0 ? stated
                       : held != nullptr       ? held->tag
                                               : binding.value.tag;
    if (binding.value.tag != wanted) {
        return SetStatus::wrongType;
    }
    if (const auto* bytes = std::get_if<std::string>(&binding.value.content)) {
        const bool addressFits = wanted != Tag::ipAddress || bytes->size() == 4;
        const auto length = static_cast<std::int64_t>(bytes->size());
        if (!addressFits || (schema.size && !schema.size->contains(length))) {
            return SetStatus::wrongLength;
        }
    }
    const auto number = numberOf(binding.value);
    if (number && schema.range && !schema.range->contains(*number)) {
        return SetStatus::wrongValue;
    }
    return std::nullopt;
}

std::optional<SetStatus> SetTransaction::setRowStatus(const ObjectRule& rule,
                                                      const Binding& binding) {
    const Oid instance = rule.instanceOf(binding.oid);
    const auto wanted = static_cast<RowStatus>(numberOf(binding.value).value_or(0));
    const bool create = wanted == RowStatus::createAndGo || wanted == RowStatus::createAndWait;
    if (wanted == RowStatus::destroy) {
        destroyRow(rule, instance);
        return std::nullopt;
    }
    if (!create && wanted != RowStatus::active && wanted != RowStatus::notInService) {
        return SetStatus::wrongValue;
    }
    if (!exists(binding.oid)) {
        if (!create) {
            return SetStatus::inconsistentValue;
        }
        if (store_.objects().isOnePerOnu(rule.group) && !groupHolds(rule, instance)) {
            return SetStatus::noCreation;
        }
        created_.insert(binding.oid);
        changes_[binding.oid] = rowValue(RowStatus::notInService);
    }
    if (wanted == RowStatus::createAndGo || wanted == RowStatus::active) {
        activations_.push_back(binding.oid);
        changes_[binding.oid] = rowValue(RowStatus::active);
    } else if (wanted == RowStatus::notInService) {
        changes_[binding.oid] = rowValue(RowStatus::notInService);
    }
    return std::nullopt;
}

void SetTransaction::destroyRow(const ObjectRule& rule, const Oid& instance) {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        changes_[member->column.joined(instance)] = std::nullopt;
    }
}

bool SetTransaction::createsLater(const Oid& rowStatus, std::size_t index) const {
    return std::any_of(
        bindings_.begin() + static_cast<std::ptrdiff_t>(index), bindings_.end(),
        [&](const Binding& binding) { return binding.oid == rowStatus && creates(binding.value); });
}

bool SetTransaction::mayCreate(const ObjectRule& rule, const Oid& instance,
                               std::size_t index) const {
    if (rule.schema.access != ObjectAccess::readCreate) {
        return false;
    }
    if (rule.rowStatus) {
        const Oid status = rule.rowStatus->joined(instance);
        if (exists(status) || createsLater(status, index)) {
            return true;
        }
    }
    return groupHolds(rule, instance);
}

// True when the group has the instance whether or not the row exists.
bool SetTransaction::groupHolds(const ObjectRule& rule, const Oid& instance) const {
    return std::ranges::any_of(
        store_.objects().rowlessObjects(rule.group),
        [&](const ObjectRule* other) { return exists(other->column.joined(instance)); });
}

Changes SetTransaction::finish() {
    for (const Oid& status : created_) {
        if (exists(status)) {
            const ObjectRule& rule = *store_.objects().find(status);
            fillRow(rule, rule.instanceOf(status));
        }
    }
    // What was set later in the same SET (not in service, destroyed) holds.
    std::erase_if(activations_,
                  [this](const Oid& status) { return !holdsRow(status, RowStatus::active); });
    for (const Oid& status : activations_) {
        changes_[status] = rowValue(RowStatus::notReady);
    }
    for (const Oid& status : activations_) {
        const ObjectRule& rule = *store_.objects().find(status);
        if (mayBeActive(rule, rule.instanceOf(status))) {
            changes_[status] = rowValue(RowStatus::active);
        }
    }
    std::erase_if(changes_, [this](const Changes::value_type& change) {
        return store_.objects().find(change.first)->schema.access == ObjectAccess::writeOnly;
    });
    return std::move(changes_);
}

// A unique object has no default: two rows must not get the same.
void SetTransaction::fillRow(const ObjectRule& rule, const Oid& instance) {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        const ObjectSchema& schema = member->schema;
        const Oid oid = member->column.joined(instance);
        if (exists(oid) || schema.unique || schema.access == ObjectAccess::writeOnly) {
            continue;
        }
        if (auto value = defaultValue(schema)) {
            changes_[oid] = std::move(value);
        }
    }
}

bool SetTransaction::mayBeActive(const ObjectRule& rule, const Oid& instance) const {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        if (!member->schema.unique) {
            continue;
        }
        const Value* own = find(member->column.joined(instance));
        if (own == nullptr || isBlank(*own)) {
            return false;
        }
        for (const Oid& active : activeRows(rule.column)) {
            const Value* other = find(member->column.joined(rule.instanceOf(active)));
            if (other != nullptr && *other == *own) {
                return false;
            }
        }
    }
    return true;
}

std::set<Oid> SetTransaction::activeRows(const Oid& rowStatus) const {
    std::set<Oid> rows;
    for (const auto* entry = store_.next(rowStatus, false);
         entry != nullptr && entry->first.startsWith(rowStatus);
         entry = store_.next(entry->first, false)) {
        rows.insert(entry->first);
    }
    for (const auto& [oid, value] : changes_) {
        if (oid.startsWith(rowStatus)) {
            rows.insert(oid);
        }
    }
    std::erase_if(rows, [this](const Oid& row) { return !holdsRow(row, RowStatus::active); });
    return rows;
}

} // namespace onudesk::sim
