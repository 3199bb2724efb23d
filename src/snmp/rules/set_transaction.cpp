// SPDX-License-Identifier: MIT
#include "snmp/rules/set_transaction.h"

#include "base/numbers.h"
#include "snmp/rules/membership.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace onudesk {

namespace {

bool isCreation(RowStatus status) {
    return status == RowStatus::createAndGo || status == RowStatus::createAndWait;
}

// Numbers joined by ",", as many and as large as the object takes.
bool isNumberList(std::string_view text, const ObjectSchema& schema) {
    std::int64_t count = 0;
    for (bool more = true; more; ++count) {
        const auto comma = std::min(text.find(','), text.size());
        const auto number = parseNumber<std::int64_t>(text.substr(0, comma));
        if (!number || (schema.range && !schema.range->contains(*number))) {
            return false;
        }
        more = comma < text.size();
        text.remove_prefix(more ? comma + 1 : comma);
    }
    return schema.numbers->contains(count);
}

// An address of zeros is what a device shows where none was given.
bool isBlank(const Value& value) {
    const std::string* bytes = bytesOf(value);
    return bytes != nullptr && bytes->find_first_not_of('\0') == std::string::npos;
}

} // namespace

const Value* SetTransaction::find(const Oid& oid) const {
    return lookUp(state_.values(), changes_.values, oid);
}

bool SetTransaction::holdsRow(const Oid& oid, RowStatus status) const {
    const Value* value = find(oid);
    return value != nullptr && *value == rowStatusValue(status);
}

SetResult SetTransaction::add(std::size_t index) {
    const VarBind& binding = bindings_[index];
    const ObjectRule* rule = state_.objects().find(binding.oid);
    if (rule == nullptr || rule->schema.access == ObjectAccess::readOnly) {
        return SetStatus::notWritable;
    }
    if (SetResult checked = checkValue(*rule, binding); !checked) {
        return checked;
    }
    if (!rule->model.empty()) {
        writeTo(*rule, index);
        return {};
    }
    if (rule->isRowStatus()) {
        return setRowStatus(*rule, binding);
    }
    if (rule->schema.access == ObjectAccess::writeOnly) {
        return {};
    }
    if (rule->stagedBy) {
        return staging_.hold(*rule, binding);
    }
    if (!exists(binding.oid) && !mayCreate(*rule, rule->instanceOf(binding.oid), index)) {
        return SetStatus::noCreation;
    }
    changes_.values[binding.oid] = binding.value;
    return {};
}

// In the order of RFC 3416, section 4.2.5.
SetResult SetTransaction::checkValue(const ObjectRule& rule, const VarBind& binding) const {
    const ObjectSchema& schema = rule.schema;
    const Value* held = find(binding.oid);
    const auto stated = static_cast<Tag>(schema.object.type);
    const Tag wanted = schema.object.type != 0 ? stated
                       : held != nullptr       ? held->tag
                                               : binding.value.tag;
    if (binding.value.tag != wanted) {
        return SetStatus::wrongType;
    }
    if (const std::string* bytes = bytesOf(binding.value)) {
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
    if (number && schema.index && *number != rule.instanceOf(binding.oid).last()) {
        return SetStatus::wrongValue;
    }
    return {};
}

SetResult SetTransaction::setRowStatus(const ObjectRule& rule, const VarBind& binding) {
    const Oid instance = rule.instanceOf(binding.oid);
    const RowStatus wanted = rowStatusOf(binding.value);
    const bool create = isCreation(wanted);
    if (staging_.governs(rule)) {
        return setStagedStatus(rule, instance, wanted);
    }
    if (wanted == RowStatus::destroy) {
        destroyRow(rule, instance);
        return {};
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
        changes_.values[binding.oid] = rowStatusValue(RowStatus::notInService);
    }
    if (wanted == RowStatus::createAndGo || wanted == RowStatus::active) {
        activations_.push_back(binding.oid);
        changes_.values[binding.oid] = rowStatusValue(RowStatus::active);
    } else if (wanted == RowStatus::notInService) {
        changes_.values[binding.oid] = rowStatusValue(RowStatus::notInService);
    }
    return {};
}

// The rows of staged groups are there for good; only what they hold changes.
SetResult SetTransaction::setStagedStatus(const ObjectRule& rule, const Oid& instance,
                                          RowStatus wanted) {
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
    for (const ObjectRule* member : state_.objects().rowObjects(rule.column)) {
        changes_.values[member->column.joined(instance)] = std::nullopt;
    }
}

// Rows that are there once per ONU need an ONU, and rows that hold their number one that fits.
bool SetTransaction::mayBeRow(const ObjectRule& rule, const Oid& instance) const {
    const auto isNumber = [&](const ObjectRule* member) {
        const ObjectSchema& schema = member->schema;
        return !schema.index || !schema.range || schema.range->contains(instance.last());
    };
    return (!state_.objects().isOnePerOnu(rule.group) || groupHolds(rule, instance)) &&
           std::ranges::all_of(state_.objects().rowObjects(rule.column), isNumber);
}

bool SetTransaction::createsLater(const Oid& rowStatus, std::size_t index) const {
    return std::any_of(bindings_.begin() + static_cast<std::ptrdiff_t>(index), bindings_.end(),
                       [&](const VarBind& binding) {
                           return binding.oid == rowStatus &&
                                  isCreation(rowStatusOf(binding.value));
                       });
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
        state_.objects().rowlessObjects(rule.group),
        [&](const ObjectRule* other) { return exists(other->column.joined(instance)); });
}

void SetTransaction::writeTo(const ObjectRule& rule, std::size_t index) {
    const Oid instance = rule.instanceOf(bindings_[index].oid);
    auto known = std::ranges::find_if(groupWrites_, [&](const Started& other) {
        return other.group == rule.group && other.write.instance() == instance;
    });
    if (known == groupWrites_.end()) {
        known = groupWrites_.insert(known, {rule.group, index, GroupWrite(rule.model, instance)});
    }
    known->write.take(rule.schema.object.name, bindings_[index].value);
}

Result<Changes, SetFailure> SetTransaction::finish(const GroupModels& models) {
    for (const Started& started : groupWrites_) {
        if (const SetResult result = models(started.write, changes_.values); !result) {
            return SetFailure{result.failure(), started.firstIndex};
        }
    }
    for (const Oid& status : created_) {
        if (exists(status)) {
            const ObjectRule& rule = *state_.objects().find(status);
            fillRow(rule, rule.instanceOf(status));
        }
    }
    // What was set later in the same SET (not in service, destroyed) holds.
    std::erase_if(activations_,
                  [this](const Oid& status) { return !holdsRow(status, RowStatus::active); });
    for (const Oid& status : activations_) {
        changes_.values[status] = rowStatusValue(RowStatus::notReady);
    }
    for (const Oid& status : activations_) {
        const ObjectRule& rule = *state_.objects().find(status);
        if (mayBeActive(rule, rule.instanceOf(status))) {
            changes_.values[status] = rowStatusValue(RowStatus::active);
        }
    }
    settleMemberships(state_, changes_);
    std::erase_if(changes_.values, [this](const Delta::value_type& change) {
        return state_.objects().find(change.first)->schema.access == ObjectAccess::writeOnly;
    });
    return std::move(changes_);
}

// A unique object has no default: two rows must not get the same.
void SetTransaction::fillRow(const ObjectRule& rule, const Oid& instance) {
    for (const ObjectRule* member : state_.objects().rowObjects(rule.column)) {
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
    for (const ObjectRule* member : state_.objects().rowObjects(rule.column)) {
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
    for (const auto* entry = state_.next(rowStatus, false);
         entry != nullptr && entry->first.startsWith(rowStatus);
         entry = state_.next(entry->first, false)) {
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

Result<Changes, SetFailure> prepareSet(const AgentState& state, const VarBinds& bindings,
                                       const GroupModels& models) {
    SetTransaction transaction(state, bindings);
    for (std::size_t index = 0; index < bindings.size(); ++index) {
        if (const SetResult added = transaction.add(index); !added) {
            return SetFailure{added.failure(), index};
        }
    }
    return transaction.finish(models);
}

} // namespace onudesk
