// SPDX-License-Identifier: MIT
#include "ctl/script.h"

#include "base/file.h"
#include "base/numbers.h"
#include "base/text.h"
#include "ctl/options.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <optional>
#include <utility>

#include <QKeySequence>
#include <QString>

namespace onudesk::ctl {

namespace {

constexpr std::size_t kMaxScriptBytes = std::size_t{1024} * 1024;
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kRowProperty = "row:";
constexpr std::string_view kNone = "none";

using Words = std::vector<std::string>;

struct Form {
    const char* word;
    StepKind kind;
    std::size_t arguments;
    const char* usage;
};

constexpr std::array kForms = {
    Form{"open", StepKind::open, 1, "open ITEM"},
    Form{"wait", StepKind::wait, 0, "wait"},
    Form{"set", StepKind::set, 2, "set CONTROL TEXT"},
    Form{"select", StepKind::select, 2, "select CONTROL TEXT"},
    Form{"check", StepKind::check, 2, "check CONTROL on|off"},
    Form{"row", StepKind::row, 2, "row TABLE N|none"},
    Form{"click", StepKind::click, 1, "click CONTROL"},
    Form{"doubleclick", StepKind::doubleClick, 2, "doubleclick TABLE N"},
    Form{"key", StepKind::key, 1, "key NAME"},
    Form{"elapse", StepKind::elapse, 0, "elapse"},
    Form{"answer", StepKind::answer, 1, "answer yes|no|ok"},
    Form{"print", StepKind::print, 1, "print CONTROL|page|tables|boxes|writes"},
    Form{"screenshot", StepKind::screenshot, 1, "screenshot FILE"},
};
constexpr Form kExpectControl{"expect", StepKind::expectControl, 3,
                              "expect CONTROL PROPERTY VALUE"};
constexpr Form kExpectBox{"expect", StepKind::expectBox, 4, "expect box ICON CAPTION TEXT"};
constexpr Form kExpectNoBox{"expect", StepKind::expectNoBox, 1, "expect nobox"};
constexpr Form kExpectWrites{"expect", StepKind::expectWrites, 2, "expect writes N"};

constexpr std::array<std::string_view, 10> kProperties = {
    "text",  "enabled", "editable", "visible",  "checked",
    "index", "items",   "rows",     "selected", "focus"};

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> choices) {
    return std::ranges::find(choices, text) != choices.end();
}

bool takeCount(std::string_view text, std::int32_t& number) {
    const auto taken = parseNumber<std::int32_t>(text);
    number = taken && *taken >= 0 ? *taken : number;
    return taken && *taken >= 0;
}

bool isProperty(std::string_view text) {
    std::int32_t row = 0;
    return text.starts_with(kRowProperty)
               ? takeCount(text.substr(kRowProperty.size()), row)
               : std::ranges::find(kProperties, text) != kProperties.end();
}

// What follows the opening quote, up to and without the closing one; `rest` begins behind it.
Result<std::string> takeQuoted(std::string_view& rest) {
    std::string word;
    while (!rest.empty() && rest.front() != '"') {
        char c = rest.front();
        rest.remove_prefix(1);
        if (c == '\\') {
            const char escaped = rest.empty() ? '\0' : rest.front();
            if (escaped != '"' && escaped != '\\' && escaped != 'n') {
                return Error{"a backslash in quotes must stand before \", \\ or n"};
            }
            c = escaped == 'n' ? '\n' : escaped;
            rest.remove_prefix(1);
        }
        word += c;
    }
    if (rest.empty()) {
        return Error{"the closing quote is missing"};
    }
    rest.remove_prefix(1);
    if (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
        return Error{"a blank must follow the closing quote"};
    }
    return word;
}

Result<Words> splitWords(std::string_view rest) {
    Words words;
    while (!rest.empty()) {
        if (rest.front() == '"') {
            rest.remove_prefix(1);
            Result<std::string> word = takeQuoted(rest);
            if (!word) {
                return Error{word.error()};
            }
            words.push_back(std::move(word).value());
        } else {
            const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
            if (word.find('"') != std::string_view::npos) {
                return Error{"a quote must stand at the begin of a word"};
            }
            words.emplace_back(word);
            rest.remove_prefix(word.size());
        }
        rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    }
    return words;
}

const Form& expectForm(const Words& words) {
    const std::string_view what = words.size() > 1 ? std::string_view(words[1]) : "";
    return what == "box"      ? kExpectBox
           : what == "nobox"  ? kExpectNoBox
           : what == "writes" ? kExpectWrites
                              : kExpectControl;
}

const Form* formOf(const Words& words) {
    if (words.front() == "expect") {
        return &expectForm(words);
    }
    const auto* const found =
        std::ranges::find_if(kForms, [&](const Form& form) { return words.front() == form.word; });
    return found == kForms.end() ? nullptr : found;
}

bool isKey(const std::string& name) {
    const QKeySequence keys(QString::fromStdString(name), QKeySequence::PortableText);
    return keys.count() == 1 && keys[0].key() != Qt::Key_unknown;
}

Result<void> unless(bool right, const std::string& text, const char* wanted) {
    return right ? Result<void>() : Error{"\"" + text + "\" must be " + wanted};
}

// Checks the arguments and takes numbers.
Result<void> takeArguments(Step& step) {
    const Words& words = step.arguments;
    switch (step.kind) {
    case StepKind::open:
        return unless(takeCount(words[0], step.number), words[0], "an item type number");
    case StepKind::row:
        step.number = kNoRow;
        return unless(words[1] == kNone || takeCount(words[1], step.number), words[1],
                      "a row number from 0, or none");
    case StepKind::doubleClick:
        return unless(takeCount(words[1], step.number), words[1], "a row number from 0");
    case StepKind::check:
        return unless(isOneOf(words[1], {"on", "off"}), words[1], "on or off");
    case StepKind::answer:
        return unless(isOneOf(words[0], {"yes", "no", "ok"}), words[0], "yes, no or ok");
    case StepKind::key:
        return unless(isKey(words[0]), words[0], "a key, such as F1, Return or Shift+Tab");
    case StepKind::screenshot:
        return words[0].empty() ? Error{"the file has no name"} : Result<void>();
    case StepKind::expectControl:
        return unless(isProperty(words[1]), words[1], "a property");
    case StepKind::expectBox:
        return unless(isOneOf(words[1], {kNone, "information", "warning"}), words[1],
                      "none, information or warning");
    case StepKind::expectWrites:
        return unless(takeCount(words[1], step.number), words[1], "a number");
    default:
        return {};
    }
}

Result<Step> parseStep(std::string_view text) {
    Step step;
    step.text = text;
    Result<Words> words = splitWords(text);
    if (!words) {
        return Error{words.error()};
    }
    const Form* form = formOf(*words);
    if (form == nullptr) {
        return Error{"unknown step " + words->front()};
    }
    if (words->size() != form->arguments + 1) {
        return Error{std::string("wrong number of arguments, must be ") + form->usage};
    }
    step.kind = form->kind;
    step.arguments.assign(std::make_move_iterator(words->begin() + 1),
                          std::make_move_iterator(words->end()));
    if (const Result<void> taken = takeArguments(step); !taken) {
        return Error{std::string(form->word) + ": " + taken.error()};
    }
    if (step.kind == StepKind::screenshot) {
        step.arguments[0] = std::filesystem::absolute(step.arguments[0]).string();
    }
    return step;
}

Result<std::string> readStandardInput() {
    std::string text(kMaxScriptBytes + 1, '\0');
    std::cin.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::cin.gcount()));
    if (std::cin.bad()) {
        return Error{"standard input: cannot be read"};
    }
    if (text.size() > kMaxScriptBytes) {
        return Error{"standard input: larger than " + std::to_string(kMaxScriptBytes) + " bytes"};
    }
    return text;
}

} // namespace

Result<std::vector<Step>> parseScript(std::string_view text) {
    std::vector<Step> steps;
    for (const auto& [number, whole] : lines(text)) {
        const std::string_view line = trimmed(whole, " \t\r");
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        Result<Step> step = parseStep(line);
        if (!step) {
            return Error{"line " + std::to_string(number) + ": " + step.error()};
        }
        step->line = number;
        steps.push_back(std::move(step).value());
    }
    return steps;
}

std::string scriptName(const std::filesystem::path& file) {
    return file == kStandardInput ? "standard input" : file.string();
}

Result<std::vector<Step>> loadScript(const std::filesystem::path& file) {
    const Result<std::string> text =
        file == kStandardInput ? readStandardInput() : readFile(file, kMaxScriptBytes);
    if (!text) {
        return Error{text.error()};
    }
    Result<std::vector<Step>> steps = parseScript(*text);
    if (!steps) {
        return Error{scriptName(file) + ": " + steps.error()};
    }
    return steps;
}

bool isAction(StepKind kind) {
    switch (kind) {
    case StepKind::open:
    case StepKind::set:
    case StepKind::select:
    case StepKind::check:
    case StepKind::row:
    case StepKind::click:
    case StepKind::doubleClick:
    case StepKind::key:
        return true;
    default:
        return false;
    }
}

bool isForQuestions(StepKind kind) {
    return !isAction(kind) && kind != StepKind::wait && kind != StepKind::elapse;
}

} // namespace onudesk::ctl
