// SPDX-License-Identifier: MIT
#include "pages/framework/fields.h"

#include <utility>

namespace onudesk {

namespace {

bool countsAsEmpty(EmptyText rule, std::string_view text) {
    return rule == EmptyText::blankTakesFocus ? text.find_first_not_of(' ') == std::string::npos
                                              : text.empty() && rule != EmptyText::fails;
}

} // namespace

FieldCheck numberIn(std::int64_t minimum, std::int64_t maximum, EmptyText empty) {
    return {.empty = empty, .range = FieldCheck::Range{minimum, maximum}};
}

FieldCheck hexIn(std::int64_t minimum, std::int64_t maximum, EmptyText empty) {
    return {.empty = empty, .range = FieldCheck::Range{minimum, maximum, 16}};
}

FieldCheck macAddress() {
    return {.function =
                [](std::string_view text) {
                    return checkMac(text, message::badMac, platform::PromptIcon::warning).failure;
                },
            .messageIds = {message::badMac, message::allZeroMac}};
}

FieldCheck dottedQuad() {
    return {.function = checkDottedQuad, .messageIds = {message::badDottedQuad}};
}

EnabledBy checkBox(const char* name) {
    return {.tick = name};
}

EnabledBy radioButton(const char* name, bool tickEnables) {
    return {.tick = name, .isRadio = true, .tickEnables = tickEnables};
}

EnabledBy choiceIn(const char* list, std::vector<std::string> codes, bool keepsUnchosen) {
    return {.list = list, .codes = std::move(codes), .keepsUnchosen = keepsUnchosen};
}

Field constant(ObjectName object, std::string value) {
    return {.kind = ControlKind::none,
            .object = std::move(object),
            .written = Written::always,
            .constant = std::move(value)};
}

Field rowStatus(ObjectName object, RowStatus status) {
    return constant(std::move(object), rowStatusText(status));
}

Field addressField(const char* control, int labelId, std::size_t position, const char* object) {
    return {.control = control,
            .labelId = labelId,
            .position = position,
            .object = {object},
            .check = dottedQuad(),
            .written = Written::whileEnabled};
}

std::optional<std::string> shownText(const Field& field, const ReadResult& result) {
    if (field.position >= result.values.size()) {
        return std::nullopt;
    }
    const std::string& value = result.values[field.position];
    if (!field.codes.empty()) {
        const bool keeps = field.codes.keepsUnknown() && !field.codes.hasValue(value);
        return keeps ? std::nullopt : std::optional(field.codes.textOf(value));
    }
    return field.show.through != nullptr ? field.show.through(value)
                                         : std::string(textUpToZero(value));
}

bool isWritten(const Field& field, const FieldState& state) {
    switch (field.written) {
    case Written::always:
        return state.ticked;
    case Written::whileEnabled:
        return state.ticked && state.enabled;
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
    if (countsAsEmpty(check.empty, state.text)) {
        return CheckFailure{};
    }
    if (check.range) {
        if (auto failure = checkRange(state.text, check.range->minimum, check.range->maximum,
                                      check.range->base)) {
            return failure;
        }
    }
    return check.function ? check.function(state.text) : std::nullopt;
}

std::string writtenValue(const Field& field, const FieldState& state) {
    if (field.kind == ControlKind::none) {
        return field.constant;
    }
    if (field.kind == ControlKind::mac) {
        return bytesOfHex(checkMac(state.text, message::badMac, {}).address);
    }
    if (field.check && field.check->range && field.check->range->base != 10) {
        return decimalOf(state.text, field.check->range->base);
    }
    return field.codes.empty() ? state.text : state.code.value_or(std::string());
}

std::size_t writtenLength(const Field& field) {
    return field.kind == ControlKind::mac ? kMacBytes : 0;
}

} // namespace onudesk
