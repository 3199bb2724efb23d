// SPDX-License-Identifier: MIT
#include "page_steps.h"

#include "env/language_module.h"
#include "mainform/page_table.h"
#include "pages/framework/controls.h"
#include "pages/framework/row_table.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <ranges>
#include <tuple>

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>

namespace onudesk::test {

namespace {

Words behind(const Words& words, std::size_t count) {
    return {words.begin() + static_cast<std::ptrdiff_t>(std::min(count, words.size())),
            words.end()};
}

// The words up to the separator, which goes, too.
Words takeUntil(Words& words, const std::string& separator) {
    const auto end = std::ranges::find(words, separator);
    Words taken(words.begin(), end);
    words.erase(words.begin(), end == words.end() ? end : end + 1);
    return taken;
}

// The words with these in place of %1, %2…
Words filled(Words words, const Words& arguments) {
    for (std::string& word : words) {
        for (std::size_t number = 1; number <= arguments.size(); ++number) {
            const std::string place = "%" + std::to_string(number);
            for (std::size_t at = word.find(place); at != std::string::npos;
                 at = word.find(place, at + arguments[number - 1].size())) {
                word.replace(at, place.size(), arguments[number - 1]);
            }
        }
    }
    return words;
}

std::uint32_t numberOf(const std::string& word) {
    return static_cast<std::uint32_t>(std::stoul(word));
}

// "#001A" are two bytes.
std::string valueOf(const std::string& word) {
    return word.starts_with('#') ? bytesOfHex(word) : word;
}

} // namespace

Words wordsOf(const std::string& line) {
    Words words;
    bool quoted = false;
    bool inside = false;
    for (const char c : line) {
        quoted = quoted != (c == '"');
        const bool part = c != ' ' || quoted;
        if (part && !inside) {
            words.emplace_back();
        }
        if (part) {
            words.back() += c;
        }
        inside = part;
    }
    return words;
}

std::string meaningOf(const std::string& word) {
    std::string text;
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (word[at] == '\\') {
            text += word[++at] == 'n' ? '\n' : ' ';
        } else if (word[at] == '{') {
            const std::size_t end = word.find('}', at);
            text += messageText(std::stoi(word.substr(at + 1, end - at - 1)));
            at = end;
        } else if (word[at] != '"') {
            text += word[at];
        }
    }
    return text;
}

std::pair<std::string, std::string> halves(const std::string& word) {
    const std::size_t at = word.find('=');
    return {word.substr(0, at), at == std::string::npos ? std::string() : word.substr(at + 1)};
}

std::string joined(const Words& words, const char* separator) {
    std::string text;
    for (std::size_t at = 0; at < words.size(); ++at) {
        text += (at == 0 ? "" : separator) + words[at];
    }
    return text;
}

void PrintTo(const PageCase& one, std::ostream* out) {
    *out << one.name;
}

std::vector<PageCase> loadCases(const std::string& file) {
    std::ifstream in(std::string(ONUDESK_SOURCE_DIR) + "/tests/ui/" + file);
    std::vector<PageCase> cases;
    Section section;
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        const Words words = wordsOf(line);
        const std::string where = file + ":" + std::to_string(++number);
        if (words.empty() || words[0] == "//") {
            continue;
        }
        if (words[0] == "item") {
            section = {.itemType = std::stoi(words[1])};
            for (const std::string& word : behind(words, 2)) {
                const auto [name, value] = halves(word);
                section.subIndex = name == "sub" ? std::stoi(value) : section.subIndex;
                section.group = name == "group" ? value : section.group;
                section.menu = name == "menu" ? value : section.menu;
                section.onu = name == "onu" ? value : section.onu;
            }
        } else if (words[0] == "values") {
            section.values["$" + words[1]] = behind(words, 2);
        } else if (words[0] == "to") {
            section.verbs[words[1]] = behind(words, 3);
        } else if (words[0] == "case") {
            std::string name = words[0] + line.substr(4);
            std::erase_if(name, [](unsigned char c) { return std::isalnum(c) == 0; });
            cases.push_back({section, std::to_string(section.itemType) + name.substr(4), {}});
        } else {
            cases.at(cases.size() - 1).lines.emplace_back(where, line);
        }
    }
    return cases;
}

PageSteps::PageSteps() {
    addOperatorVerbs();
    addHostVerbs();
    addExpectations();
    desk.whileOpen = desk.whilePaused = [this] {
        const std::size_t rest = steps_.size();
        steps_.insert(steps_.begin(), during_.begin(), during_.end());
        during_.clear();
        runWhile([this, rest] { return steps_.size() > rest; });
    };
}

void PageSteps::open(const Section& section) {
    section_ = section;
    session.context.currentItemType = section.itemType;
    session.context.menuFileName = section.menu;
    session.OnuIndexText = section.onu;
    session.context.subIndex = session.SubIndex = section.subIndex;
    page_.reset(createPage(session, section.itemType, nullptr));
    ASSERT_NE(page_, nullptr) << section.itemType;
    page_->resize(620, 540);
    page_->show();
    registerReadRoute(session, section.itemType, page_->replyHandle());
}

std::deque<PageSteps::Step> PageSteps::parse(const std::string& where, Words words) const {
    std::deque<Step> steps;
    const auto add = [&](const Words& body, const Words& arguments) {
        const auto more = parse(where, filled(body, arguments));
        steps.insert(steps.end(), more.begin(), more.end());
    };
    while (!words.empty()) {
        if (words[0] == "each") {
            Words groups = behind(takeUntil(words, ":"), 1);
            while (!groups.empty()) {
                add(words, takeUntil(groups, "|"));
            }
            break;
        }
        const Words step = takeUntil(words, ";");
        const auto made = section_.verbs.find(step[0]);
        if (made != section_.verbs.end()) {
            add(made->second, behind(step, 1));
        } else {
            steps.push_back({where, step});
        }
    }
    return steps;
}

void PageSteps::run(const std::vector<std::pair<std::string, std::string>>& lines) {
    for (const auto& [where, line] : lines) {
        const auto more = parse(where, wordsOf(line));
        steps_.insert(steps_.end(), more.begin(), more.end());
    }
    runWhile([] { return true; });
    EXPECT_TRUE(during_.empty()) << "neither box nor pause";
}

void PageSteps::runWhile(const std::function<bool()>& goOn) {
    while (!steps_.empty() && goOn() && !HasFatalFailure()) {
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        perform(step);
    }
}

void PageSteps::perform(const Step& step) {
    SCOPED_TRACE(step.where + " " + joined(step.words, " "));
    const auto verb = verbs_.find(step.words[0]);
    ASSERT_NE(verb, verbs_.end()) << "no such verb";
    Words words = behind(step.words, 1);
    if (verb->first != "during") {
        std::ranges::transform(words, words.begin(), meaningOf);
    }
    verb->second(words);
}

// Does what may open a dialog; the steps to come are done there until it closes.
void PageSteps::opening(const std::function<void()>& act) {
    const QPointer<QDialog> before = dialog();
    const QObject guard; // without a dialog nothing is called
    QTimer::singleShot(0, &guard, [this, before] {
        const QPointer<QDialog> opened = dialog();
        if (opened == before) {
            return;
        }
        runWhile([&opened] { return opened && opened->isVisible(); });
        if (opened && opened->isVisible()) {
            ADD_FAILURE() << "the dialog is left open";
            opened->reject();
        }
    });
    act();
}

QDialog* PageSteps::dialog() {
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

QWidget& PageSteps::window() {
    return dialog() != nullptr ? static_cast<QWidget&>(*dialog()) : *page_;
}

QWidget& PageSteps::control(const std::string& name) {
    if (name.starts_with("page.")) {
        return in(*page_, name.substr(5));
    }
    const bool inside = window().findChild<QWidget*>(QString::fromStdString(name)) != nullptr;
    return in(inside ? window() : *page_, name);
}

void PageSteps::each(const Words& words,
                     const std::function<void(QWidget&, const std::string&)>& work) {
    for (const std::string& word : words) {
        const auto [name, value] = halves(word);
        SCOPED_TRACE(name);
        work(control(name), value);
    }
}

void PageSteps::addOperatorVerbs() {
    const auto table = [this]() -> RowTable& {
        return dynamic_cast<RowTable&>(control("mainTable"));
    };
    // The page is shown again.
    verbs_["again"] = [this](const Words&) { page_->updatePage(); };
    // yes|no|ok: to every question from now on.
    verbs_["answer"] = [this](const Words& words) {
        using enum platform::PromptAnswer;
        desk.answer = words[0] == "yes" ? yes : words[0] == "no" ? no : ok;
    };
    // The open dialog.
    verbs_["cancel"] = [](const Words&) {
        ASSERT_NE(dialog(), nullptr);
        dialog()->reject();
    };
    // CONTROL…
    verbs_["click"] = [this](const Words& words) {
        each(words, [this](QWidget& control, const std::string&) {
            opening([&control] { click(control); });
        });
    };
    // ROW of mainTable, -1 for below the last one; likewise `doubleclick`.
    verbs_["clickrow"] = [table](const Words& words) { clickRow(table(), std::stoi(words[0])); };
    verbs_["doubleclick"] = [this, table](const Words& words) {
        opening([&] { doubleClickRow(table(), std::stoi(words[0])); });
    };
    // STEP: while the next box is open, or during the next pause.
    verbs_["during"] = [this](const Words& words) { during_.push_back({"during", words}); };
    // The timer of the open dialog, or of the page, fires.
    verbs_["elapse"] = [this](const Words&) { elapse(window()); };
    // CONTROL…: whatever took it away.
    verbs_["enable"] = [this](const Words& words) {
        each(words, [](QWidget& control, const std::string&) { control.setEnabled(true); });
    };
    // CONTROL down|escape
    verbs_["key"] = [this](const Words& words) {
        key(control(words[0]), words[1] == "down" ? Qt::Key_Down : Qt::Key_Escape);
    };
    // ROW|none: selects it.
    verbs_["row"] = [table](const Words& words) {
        table().clearSelection();
        table().selectRow(words[0] == "none" ? -1 : std::stoi(words[0]));
    };
    // CONTROL=TEXT…: puts it into an edit, or chooses it.
    verbs_["set"] = [this](const Words& words) {
        each(words, [](QWidget& control, const std::string& text) {
            if (auto* list = qobject_cast<QComboBox*>(&control)) {
                choose(*list, text);
            } else {
                setControlText(control, text);
            }
        });
    };
    // BUTTON…: clicks it unless it is ticked; `untick` unless it is not.
    for (const bool wanted : {true, false}) {
        verbs_[wanted ? "tick" : "untick"] = [this, wanted](const Words& words) {
            each(words, [wanted](QWidget& control, const std::string&) {
                if (dynamic_cast<QAbstractButton&>(control).isChecked() != wanted) {
                    click(control);
                }
            });
        };
    }
    // CONTROL=TEXT…: key by key.
    verbs_["type"] = [this](const Words& words) {
        each(words, [](QWidget& control, const std::string& text) { type(control, text.c_str()); });
    };
}

// VALUE… group=TEXT flag=N row=INDEX oid=TEXT cut=N @POSITION=VALUE length@POSITION=N; "$name"
// stands for the values of that name.
Answer PageSteps::answerOf(const Words& words) const {
    Answer answer{.values = Words(), .status = 1, .resultText = section_.group};
    for (const std::string& word : words) {
        const auto [name, value] = halves(word);
        if (word.starts_with('$')) {
            for (const std::string& each : section_.values.at(word)) {
                answer.values->push_back(valueOf(meaningOf(each)));
            }
        } else if (name == "group") {
            answer.resultText = value;
        } else if (name == "flag") {
            answer.status = numberOf(value);
        } else if (name == "row") {
            answer.oids = Words{"1.3.6.1.1." + value};
        } else if (name == "oid") {
            answer.oids = Words{value};
        } else if (name == "cut") {
            answer.values->resize(numberOf(value));
        } else if (name.starts_with("length@")) {
            answer.lengths = std::vector<std::uint32_t>(answer.values->size());
            answer.lengths->at(numberOf(name.substr(7))) = numberOf(value);
        } else if (name.starts_with('@')) {
            answer.values->at(numberOf(name.substr(1))) = valueOf(value);
        } else {
            answer.values->push_back(valueOf(word));
        }
    }
    return answer;
}

void PageSteps::addHostVerbs() {
    // SUFFIX: the ONU has taken the write, the page reads that and tells.
    verbs_["confirmed"] = [this](const Words& words) {
        verbs_["written"]({});
        verbs_["reads"](words);
        expectBox({"11045", "caption=" + messageText(11001), "icon=information",
                   "after=" + messageText(11002)});
    };
    // Takes all requests, whatever they are.
    verbs_["drain"] = [this](const Words&) {
        while (host.take()) {
        }
    };
    // A read has no answer.
    verbs_["fail"] = [this](const Words&) {
        EXPECT_TRUE(
            host.replyRead(section_.itemType, {.errorText = "time-out", .errorStatus = -5}));
    };
    // From now on posting fails.
    verbs_["gone"] = [this](const Words&) { host.goAway(); };
    // No request waits.
    verbs_["idle"] = [this](const Words&) { EXPECT_EQ(host.pending(), 0U); };
    // SUFFIX of the oldest request, that of the ONU without a word.
    verbs_["reads"] = [this](const Words& words) {
        EXPECT_EQ(takeRead(), words.empty() ? ".1.2.5" : words[0]);
    };
    // As answerOf(): the answer to a read.
    verbs_["reply"] = [this](const Words& words) {
        EXPECT_TRUE(host.replyRead(section_.itemType, answerOf(words)));
    };
    // read|write page|dialog|none gets the answers; "write take": from now on the page.
    verbs_["route"] = [this](const Words& words) {
        if (words[1] == "take") {
            registerWriteRoute(session, section_.itemType, page_->replyHandle());
            return;
        }
        const std::uint32_t window =
            host.routedWindow(words[0] == "read" ? CP_KIND_READ : CP_KIND_WRITE, section_.itemType);
        const bool isPage = window == page_->replyHandle();
        EXPECT_EQ(words[1], window == 0 ? "none" : isPage ? "page" : "dialog");
    };
    // @INSTANCE OBJECT=VALUE… first-of-two: the oldest request; with "..." there may be others
    // between them.
    verbs_["writes"] = [this](const Words& words) {
        std::string instance = "1.2.5";
        Words expected;
        for (const std::string& word : words) {
            const auto [name, value] = halves(word);
            if (word.starts_with('@')) {
                instance = word.substr(1);
            } else if (word == "first-of-two") {
                expected.push_back(word);
            } else if (word != "...") {
                expected.push_back(name + "@" + instance + "=" + value);
            }
        }
        Words bindings = takeWrite();
        if (std::ranges::count(words, "...") != 0) {
            std::erase_if(bindings, [&](const std::string& binding) {
                return std::ranges::count(expected, binding) == 0;
            });
        }
        EXPECT_EQ(bindings, expected);
    };
    // STATUS: the answer to a write.
    verbs_["written"] = [this](const Words& words) {
        EXPECT_TRUE(
            host.replyWrite(section_.itemType, {.status = words.empty() ? 1 : numberOf(words[0])}));
    };
}

void PageSteps::expectBox(const Words& words) {
    const auto boxes = desk.takeBoxes();
    ASSERT_EQ(boxes.size(), words.empty() || words[0] == "0" ? 0U : 1U);
    if (boxes.empty()) {
        return;
    }
    std::map<std::string, std::string> given{{"caption", messageText(11054)}};
    Words arguments;
    for (const std::string& word : behind(words, 1)) {
        const auto [name, value] = halves(word);
        if (word.find('=') == std::string::npos) {
            arguments.push_back(word);
        } else {
            given[name] = value;
        }
    }
    using enum platform::PromptIcon;
    const platform::PromptIcon icon = given["icon"].empty()     ? warning
                                      : given["icon"] == "none" ? none
                                                                : information;
    EXPECT_EQ(boxes[0].text,
              fillPlaces(messageText(std::stoi(words[0])), arguments) + given["after"]);
    EXPECT_EQ(boxes[0].caption, given["caption"]);
    EXPECT_EQ(boxes[0].icon, icon);
    EXPECT_EQ(boxes[0].buttons == platform::PromptButtons::yesNo, given["asks"] == "yes");
}

void PageSteps::addExpectations() {
    const auto table = [this]() -> RowTable& {
        return dynamic_cast<RowTable&>(control("mainTable"));
    };
    // ID ARGUMENT… caption=TEXT icon=none|information after=TEXT asks=yes: the only box; without
    // words, or with 0, there is none.
    verbs_["box"] = [this](const Words& words) { expectBox(words); };
    // CONTROL=TEXT…: caption of labels and buttons, what one sees in it, whether it is shown (yes,
    // no).
    const std::pair<const char*, std::string (*)(const QWidget&)> looks[] = {
        {"caption", [](const QWidget& of) { return bytesOf(of.property("text").toString()); }},
        {"see", [](const QWidget& of) { return stateOf(of).text; }},
        {"unchosen",
         [](const QWidget& of) { return bytesOf(of.property("placeholderText").toString()); }},
        {"shown", [](const QWidget& of) { return std::string(of.isHidden() ? "no" : "yes"); }},
    };
    for (const auto& [name, lookAt] : looks) {
        verbs_[name] = [this, look = lookAt](const Words& words) {
            each(words, [look](const QWidget& control, const std::string& text) {
                EXPECT_EQ(look(control), text);
            });
        };
    }
    // CONTROL…: can be edited or not, is ticked or not.
    const auto isUsable = [](const QWidget& of) {
        return of.isEnabled() && !of.property("readOnly").toBool();
    };
    const auto isTicked = [](const QWidget& of) { return of.property("checked").toBool(); };
    const std::tuple<const char*, bool (*)(const QWidget&), bool> states[] = {
        {"unlocked", isUsable, true},
        {"locked", isUsable, false},
        {"ticked", isTicked, true},
        {"unticked", isTicked, false},
    };
    for (const auto& [name, state, expected] : states) {
        verbs_[name] = [this, is = state, wanted = expected](const Words& words) {
            each(words, [&](const QWidget& control, const std::string&) {
                EXPECT_EQ(is(control), wanted);
            });
        };
    }
    // TEXT in the title of the open dialog; without a word there is none.
    verbs_["dialog"] = [this](const Words& words) {
        ASSERT_EQ(dialog() != nullptr, !words.empty());
        if (!words.empty()) {
            EXPECT_EQ(bytesOf(in<QLabel>(*dialog(), "TitleLabel").text()), words[0]);
            EXPECT_EQ(bytesOf(dialog()->windowTitle()), words[0]);
        }
    };
    // LIST TEXT…: its entries.
    verbs_["entries"] = [this](const Words& words) {
        EXPECT_EQ(entriesOf(dynamic_cast<QComboBox&>(control(words[0]))), behind(words, 1));
    };
    // CONTROL has the focus.
    verbs_["focus"] = [this](const Words& words) {
        EXPECT_EQ(window().focusWidget(), &control(words[0]));
    };
    // MILLISECONDS…: the pauses so far.
    verbs_["paused"] = [this](const Words& words) {
        Words pauses;
        for (const auto pause : desk.pauses) {
            pauses.push_back(std::to_string(pause.count()));
        }
        EXPECT_EQ(pauses, words);
    };
    // BUTTON CONTROL BOX…: pressing it only shows the box, as above, and the focus goes to the
    // control, if it is not "-".
    verbs_["refused"] = [this](const Words& words) {
        const QPointer<QDialog> before = dialog();
        control(words[0]).setFocus();
        click(control(words[0]));
        expectBox(behind(words, 2));
        if (words[1] != "-") {
            verbs_["focus"]({words[1]});
        }
        EXPECT_EQ(host.pending(), 0U);
        EXPECT_EQ(dialog(), before);
    };
    // CELL|CELL…: all rows of mainTable, hidden cells included.
    verbs_["rows"] = [table](const Words& words) {
        Words rows;
        for (int row = 0; row < table().rowCount(); ++row) {
            rows.push_back(joined(table().cells(row), "|"));
        }
        EXPECT_EQ(rows, words);
    };
    // ROW of mainTable, -1 for none.
    verbs_["selected"] = [table](const Words& words) {
        EXPECT_EQ(table().selectedRow(), std::stoi(words[0]));
    };
    // on|off
    verbs_["timer"] = [this](const Words& words) {
        EXPECT_EQ(in<QTimer>(*page_, "Timer1").isActive(), words[0] == "on");
    };
    // BUTTON…: these can be pressed and no others, besides that for help.
    verbs_["usable"] = [this](const Words& words) {
        EXPECT_EQ(usableIn(window()), joined(words, " "));
    };
}

} // namespace onudesk::test
