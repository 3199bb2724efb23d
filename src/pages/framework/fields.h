// SPDX-License-Identifier: MIT
//
// The fields of a record page as data: what a reply puts into each control, what is checked and
// what is written. Nothing here knows widgets.
//
//     const std::vector<Field> fields = {
//         {.control = "numgeEdit", .labelId = 20018, .position = 5},
//         {.control = "batteryEdit", .labelId = 20028, .position = 15, .map = &supported},
//     };
#pragma once

#include "pages/framework/checks.h"
#include "pages/framework/value_map.h"
#include "snmp/object_catalogue.h"
#include "snmp/reply.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

enum class EmptyText { fails, takesFocus, passes };
enum class UnknownCode { clears, keeps };
enum class Written { never, always, whileEnabled, whileTicked };

// What a field's text must be before it is written. Bounds may be changed by the page at run time.
struct FieldCheck {
    EmptyText empty = EmptyText::fails; // before everything else
    struct Range {
        std::int64_t minimum = 0;
        std::int64_t maximum = 0;
        int base = 10;
    };
    std::optional<Range> range{};                                             // of its number
    std::optional<CheckFailure> (*function)(std::string_view text) = nullptr; // any other check
};

inline constexpr std::size_t kNotRead = static_cast<std::size_t>(-1);

enum class ControlKind { edit, memo, combo };

struct Field {
    std::string control; // object name
    int labelId = 0;     // message id of its label
    ControlKind kind = ControlKind::edit;
    std::size_t position = kNotRead; // of its value in the reply
    std::string group{};             // of the object it writes
    std::string object{};
    const ValueMap* map = nullptr; // outlives the field
    std::optional<FieldCheck> check{};
    UnknownCode unknown = UnknownCode::clears; // what a code outside the map does to a combo
    Written written = Written::never;          // a field that is never written is read-only
    std::string box{};                         // check box that Written::whileTicked looks at
    std::string (*show)(const std::string& value) = nullptr; // how a value is shown
};

// What the widget layer reads off a control.
struct FieldState {
    std::string text;                // as shown
    std::optional<std::string> code; // of the combo row that is selected
    bool enabled = true;
    bool ticked = true; // of the check box that goes with it
};

// What a reply shows in the field: nothing when the reply has no value for it.
[[nodiscard]] std::optional<std::string> shownText(const Field& field, const ReadResult& result);

// Whether a write carries the field, its control being in that state.
[[nodiscard]] bool isWritten(const Field& field, const FieldState& state);

// Checks what would be written, and nothing else.
[[nodiscard]] std::optional<CheckFailure> checkField(const Field& field, const FieldState& state);

// The value that a write carries: the selected row's code, else the text.
[[nodiscard]] std::string writtenValue(const Field& field, const FieldState& state);

} // namespace onudesk
