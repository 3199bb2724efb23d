// SPDX-License-Identifier: MIT
#include "pages/framework/fields.h"

namespace onudesk {

std::optional<std::string> shownText(const Field& field, const ReadResult& result) {
    if (field.position >= result.values.size()) {
        return std::nullopt;
    }
    const std::string& value = result.values[field.position];
    if (field.map != nullptr) {
        return field.map->textOf(value);
    }
    return field.show != nullptr ? field.show(value) : std::string(textUpToZero(value));
}

bool isWritten(const Field& field, const FieldState& state) {
    switch (field.written) {
    case Written::always:
        return true;
    case Written::whileEnabled:
        return state.enabled;
    case Written::whileTicked:
        return state.ticked;
    case Written::never:
        break;
    }
    return false;
}

std::optional<CheckFailure> checkField(const Field& field, const FieldState& state) {
    if (!field.check || !state.enabled || !isWritten(field, state)) {
        return std::nullopt;
    }
    const FieldCheck& check = *field.check;
    if (state.text.empty() && check.empty != EmptyText::fails) {
        return check.empty == EmptyText::passes ? std::nullopt : std::optional(CheckFailure{});
    }
    if (check.range) {
        if (auto failure = checkRange(state.text, check.range->minimum, check.range->maximum,
                                      check.range->base)) {
            return failure;
        }
    }
    return check.function == nullptr ? std::nullopt : check.function(state.text);
}

std::string writtenValue(const Field& field, const FieldState& state) {
    return field.map == nullptr ? state.text : state.code.value_or(std::string());
}

} // namespace onudesk
