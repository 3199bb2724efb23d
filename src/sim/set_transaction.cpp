// SPDX-License-Identifier: MIT
#include "sim/set_transaction.h"

#include "sim/membership.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace onudesk::sim {

namespace {

Value rowValue(RowStatus status) {
    return integerValue(static_cast<std::int64_t>(status));
}

bool creates(const Value& value) {
    return value == rowValue(RowStatus::createAndGo) || value == rowValue(RowStatus::createAndWait);
}

// Numbers joined by ",", as many and as large as the object takes.
bool isNumberList(std::string_view text, const ObjectSchema& schema) {
    std::int64_t count = 0;
    for (bool more = true; more; ++count) {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || (schema.range && !schema.range->contains(number))) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        more = text.starts_with(',');
        text.remove_prefix(more ? 1 : 0);
    }
    return text.empty() && schema.numbers->contains(count);
}

// An address of zeros is what a device shows where none was given.
bool isBlank(const Value& value) {
    const auto* bytes = std::get_if<std::string>(&value.content);
    return bytes != nullptr && bytes->find_first_not_of('\0') == std::string::npos;
}

} // namespace

const Value* SetTransaction::find(const Oid& oid) const {
    return lookUp(store_.values(), changes_.values, oid);
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
    if (!rule->model.empty()) {
        writeTo(*rule, index);
        return std::nullopt;
    }
    if (rule->isRowStatus()) {
        return setRowStatus(*rule, binding);
    }
    if (rule->schema.access == ObjectAccess::writeOnly) {
        return std::nullopt;
    }
    if (rule->stagedBy) {
        return staging_.hold(*rule, binding);
    }
    if (!exists(binding.oid) && !mayCreate(*rule, rule->instanceOf(binding.oid), index)) {
        return SetStatus::noCreation;
    }
    changes_.values[binding.oid] = binding.value;
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
        if (schema.numbers && !isNumberList(*bytes, schema)) {
            return SetStatus::wrongValue;
        }
    }
    const auto number = numberOf(binding.value);
    if (number && schema.range && !schema.range->contains(*number)) {
        return SetStatus::wrongValue;
    }
    if (number && schema.index && *number != rule.instanceOf(binding.oid).parts().back()) {
        return SetStatus::wrongValue;
    }
    return std::nullopt;
}

std::optional<SetStatus> SetTransaction::setRowStatus(const ObjectRule& rule,
                                                      const Binding& binding) {
    const Oid instance = rule.instanceOf(binding.oid);
    const auto wanted = static_cast<RowStatus>(numberOf(binding.value).value_or(0));
    const bool create = wanted == RowStatus::createAndGo || wanted == RowStatus::createAndWait;
    if (staging_.governs(rule)) {
        return setStagedStatus(rule, instance, wanted);
    }
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
        if (!mayBeRow(rule, instance)) {
            return SetStatus::noCreation;
        }
        created_.insert(binding.oid);
        changes_.values[binding.oid] = rowValue(RowStatus::notInService);
    }
    if (wanted == RowStatus::createAndGo || wanted == RowStatus::active) {
        activations_.push_back(binding.oid);
        changes_.values[binding.oid] = rowValue(RowStatus::active);
    } else if (wanted == RowStatus::notInService) {
        changes_.values[binding.oid] = rowValue(RowStatus::notInService);
    }
    return std::nullopt;
}

// The rows of staged groups are there for good; only what they hold changes.
std::optional<SetStatus> SetTransaction::setStagedStatus(const ObjectRule& rule,
                                                         const Oid& instance, RowStatus wanted) {
    switch (wanted) {
    case RowStatus::createAndGo:
        return staging_.commit(rule, instance);
    case RowStatus::destroy:
        return staging_.removeEntry(rule, instance);
    default:
        return SetStatus::wrongValue;
    }
}

void SetTransaction::destroyRow(const ObjectRule& rule, const Oid& instance) {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        changes_.values[member->column.joined(instance)] = std::nullopt;
    }
}

// Rows that are there once per ONU need an ONU, and rows that hold their number one that fits.
bool SetTransaction::mayBeRow(const ObjectRule& rule, const Oid& instance) const {
    const auto isNumber = [&](const ObjectRule* member) {
        const ObjectSchema& schema = member->schema;
        return !schema.index || !schema.range || schema.range->contains(instance.parts().back());
    };
    return (!store_.objects().isOnePerOnu(rule.group) || groupHolds(rule, instance)) &&
           std::ranges::all_of(store_.objects().rowObjects(rule.column), isNumber);
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

void SetTransaction::writeTo(const ObjectRule& rule, std::size_t index) {
    const Oid instance = rule.instanceOf(bindings_[index].oid);
    auto known = std::ranges::find_if(modelWrites_, [&](const ModelWrite& other) {
        return other.group == rule.group && other.write.instance() == instance;
    });
    if (known == modelWrites_.end()) {
        known = modelWrites_.insert(
            known, {rule.group, findModel(rule.model), index, GroupWrite(instance)});
    }
    known->write.take(rule.schema.object.name, bindings_[index].value);
}

std::optional<SetFailure> SetTransaction::runModels() {
    Device device(store_, changes_.values);
    for (const ModelWrite& write : modelWrites_) {
        if (const auto status = write.model(write.write, device)) {
            return SetFailure{*status, write.firstIndex};
        }
    }
    return std::nullopt;
}

std::variant<Changes, SetFailure> SetTransaction::finish() {
    if (const auto failure = runModels()) {
        return *failure;
    }
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
        changes_.values[status] = rowValue(RowStatus::notReady);
    }
    for (const Oid& status : activations_) {
        const ObjectRule& rule = *store_.objects().find(status);
        if (mayBeActive(rule, rule.instanceOf(status))) {
            changes_.values[status] = rowValue(RowStatus::active);
        }
    }
    settleMemberships(store_, changes_);
    std::erase_if(changes_.values, [this](const Delta::value_type& change) {
        return store_.objects().find(change.first)->schema.access == ObjectAccess::writeOnly;
    });
    return std::move(changes_);
}

// A unique object has no default: two rows must not get the same.
void SetTransaction::fillRow(const ObjectRule& rule, const Oid& instance) {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        const ObjectSchema& schema = member->schema;
        const Oid oid = member->column.joined(instance);
        if (exists(oid) || schema.unique != Uniqueness::none ||
            schema.access == ObjectAccess::writeOnly) {
            continue;
        }
        if (auto value = member->defaultValue(instance)) {
            changes_.values[oid] = std::move(value);
        }
    }
}

bool SetTransaction::mayBeActive(const ObjectRule& rule, const Oid& instance) const {
    for (const ObjectRule* member : store_.objects().rowObjects(rule.column)) {
        if (member->schema.unique == Uniqueness::none) {
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
    for (const auto& [oid, value] : changes_.values) {
        if (oid.startsWith(rowStatus)) {
            rows.insert(oid);
        }
    }
    std::erase_if(rows, [this](const Oid& row) { return !holdsRow(row, RowStatus::active); });
    return rows;
}

} // namespace onudesk::sim
