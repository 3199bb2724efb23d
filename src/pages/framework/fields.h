// SPDX-License-Identifier: MIT
//
// The fields of a page or item dialog as data: what a reply puts into each control, what is checked
// and what is written. Nothing here knows widgets.
//
//     const std::vector<Field> fields = {
//         {.control = "numgeEdit", .labelId = 20018, .position = 5},
//         {.control = "ipEdt", .labelId = 50001, .position = 1, .object = {"onuIPAddress"},
//          .check = dottedQuad(), .written = Written::always},
//         rowStatus({"onuIPRowStatus"}),
//     };
#pragma once

#include "pages/framework/checks.h"
#include "pages/framework/value_map.h"
#include "snmp/row_status.h"
#include "window/reply.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// An object of the catalogue; without a group it is one of the page's own group.
struct ObjectName {
    std::string name{};
    std::string group{};
};

// A field without control only writes a constant; with a tick it shows a check box of its own.
// `mac` is an edit masked for a MAC address, which is written as its six bytes. The text of a
// `listMemo` is taken without blanks and line breaks at its ends.
enum class ControlKind { none, edit, memo, listMemo, combo, mac };

// What the operator may type.
struct Typing {
    int bytes = -1; // of UTF-8; -1 for any number
    bool digitsOnly = false;
    int characters = -1; // likewise
};

// blankTakesFocus counts a text of blanks as empty.
enum class EmptyText { fails, takesFocus, blankTakesFocus };

// What a field's text must be before it is written. Bounds may be changed by the page at run time.
struct FieldCheck {
    EmptyText empty = EmptyText::fails; // before everything else
    struct Range {
        std::int64_t minimum = 0;
        std::int64_t maximum = 0;
        int base = 10; // what is typed in another base is written in decimal
    };
    using Function = std::function<std::optional<CheckFailure>(std::string_view text)>;
    std::optional<Range> range{};  // of its number; message 11068
    Function function{};           // any other check, after the range
    std::vector<int> messageIds{}; // with which the function refuses
};

[[nodiscard]] FieldCheck numberIn(std::int64_t minimum, std::int64_t maximum,
                                  EmptyText empty = EmptyText::fails);
[[nodiscard]] FieldCheck hexIn(std::int64_t minimum, std::int64_t maximum,
                               EmptyText empty = EmptyText::fails);
[[nodiscard]] FieldCheck dottedQuad();
// Of a field of the kind `mac`: message 3036 for other characters than hexadecimal digits, 3029 for
// the all-zero address.
[[nodiscard]] FieldCheck macAddress();

enum class Written { never, always, whileEnabled };

// What besides itself decides whether a field takes part: a tick, a choice in a list, or both.
struct EnabledBy {
    // A check box, or one of the radio buttons of the form, in place of the field's label: the
    // field is written and checked only while it is ticked. Fields that follow each other can share
    // one. Object name; empty: none.
    std::string tick{};
    bool isRadio = false;
    bool tickEnables = false; // unticked, the control is disabled
    // A combo of the form: the control is enabled while the combo is, and has one of the codes.
    std::string list{};
    std::vector<std::string> codes{};
    bool keepsUnchosen = false; // without a choice the control stays what it is; else disabled
};

[[nodiscard]] EnabledBy checkBox(const char* name);
[[nodiscard]] EnabledBy radioButton(const char* name, bool tickEnables = false);
[[nodiscard]] EnabledBy choiceIn(const char* list, std::vector<std::string> codes,
                                 bool keepsUnchosen = false);

// How a value is shown: through a function where it is not shown as it came; and the unit behind
// the control.
struct Shown {
    std::string (*through)(const std::string& value) = nullptr;
    const char* unit = nullptr;
};

inline constexpr std::size_t kNotRead = static_cast<std::size_t>(-1);

struct Field {
    std::string control{}; // object name
    int labelId = 0;       // message id of its label
    ControlKind kind = ControlKind::edit;
    Typing typing{};
    std::size_t position = kNotRead; // of its value: in the reply; in the row that a dialog edits
    ObjectName object{};
    ValueMap codes{}; // of a combo, or of an edit that only shows
    std::optional<FieldCheck> check{};
    // Of what is never written, edits are read-only, and combos that replies fill are disabled.
    Written written = Written::never;
    EnabledBy enabledBy{};
    Shown show{};
    std::string constant{}; // what a field without control writes
};

// A binding that is always written with the same value, at its place among the fields.
[[nodiscard]] Field constant(ObjectName object, std::string value);
[[nodiscard]] Field rowStatus(ObjectName object, RowStatus status = RowStatus::createAndGo);

// An edit of an IPv4 address, checked as dottedQuad() and written while it is enabled.
[[nodiscard]] Field addressField(const char* control, int labelId, std::size_t position,
                                 const char* object);

// What the widget layer reads off a control.
struct FieldState {
    std::string text{};                // as shown
    std::optional<std::string> code{}; // of the combo row that is selected
    bool enabled = true;
    bool ticked = true;
};

// What a reply shows in the field: nothing when the reply has no value for it, or one that leaves
// the field as it is.
[[nodiscard]] std::optional<std::string> shownText(const Field& field, const ReadResult& result);

// Whether a write carries the field, its control being in that state.
[[nodiscard]] bool isWritten(const Field& field, const FieldState& state);

// Checks an enabled control that would be written, and nothing else.
[[nodiscard]] std::optional<CheckFailure> checkField(const Field& field, const FieldState& state);

// The value that a write carries: the constant, the selected row's code, the bytes of a MAC
// address, the number typed in another base, or the text.
[[nodiscard]] std::string writtenValue(const Field& field, const FieldState& state);
// How many bytes of it are sent; 0 for a text.
[[nodiscard]] std::size_t writtenLength(const Field& field);

} // namespace onudesk
