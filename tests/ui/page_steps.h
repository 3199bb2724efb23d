// SPDX-License-Identifier: MIT
//
// What operator, ONU and host do to a page of the page table, as steps of text, one per line. What
// each verb takes stands with it in page_steps.cpp. Words with blanks are quoted; {11007} is the
// message of that number.
//
//     item 649 group=maintable
//     values off 0 1
//     to choose : reply $off ; set enableComb=%1
//     case is refused without keys
//     each 1 3110 | 2 3111 : reply $off @1=%1 ; set enableComb={11007} ; refused configBtn - %2
//
// `values` are those of a reply, `to` makes a verb; `each` repeats the steps behind ":" with the
// words of every group as %1, %2… Steps behind one that opens a dialog are done there until it
// closes.
#pragma once

#include "pages/framework/config_page.h"
#include "ui_test.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <QDialog>

namespace onudesk::test {

using Words = std::vector<std::string>;

// The words of a line, quotes and all.
[[nodiscard]] Words wordsOf(const std::string& line);
// What a word stands for: without quotes, with messages, and "\\n" and "\\s" as end of line and
// blank.
[[nodiscard]] std::string meaningOf(const std::string& word);
// Before and behind the first "=".
[[nodiscard]] std::pair<std::string, std::string> halves(const std::string& word);
[[nodiscard]] std::string joined(const Words& words, const char* separator);

// What the cases of an item share.
struct Section {
    std::int32_t itemType = 0;
    std::int32_t subIndex = -1;
    std::string group = "maintable"; // of replies
    std::string menu{};
    std::string onu = "1.2.5";
    std::map<std::string, Words> values{}; // by "$name"
    std::map<std::string, Words> verbs{};
};

struct PageCase {
    Section section;
    std::string name;
    std::vector<std::pair<std::string /*where*/, std::string>> lines{};
};

// How a failed test calls it.
void PrintTo(const PageCase& one, std::ostream* out);

// The cases of a file beside the tests.
[[nodiscard]] std::vector<PageCase> loadCases(const std::string& file);

class PageSteps : public UiTest {
protected:
    PageSteps();

    // Makes the page as the main window does, shown and waiting for its first read.
    void open(const Section& section);
    // Does the steps of these lines.
    void run(const std::vector<std::pair<std::string, std::string>>& lines);
    void run(const std::string& line) { run({{"", line}}); }

    ConfigPage& page() { return *page_; }
    // In the open dialog or the page; with "page." before its name in the page.
    QWidget& control(const std::string& name);
    [[nodiscard]] static QDialog* dialog();
    [[nodiscard]] QWidget& window(); // the open dialog, or the page

private:
    struct Step {
        std::string where;
        Words words;
    };

    void addOperatorVerbs();
    void addHostVerbs();
    void addExpectations();

    [[nodiscard]] std::deque<Step> parse(const std::string& where, Words words) const;
    void runWhile(const std::function<bool()>& goOn);
    void perform(const Step& step);
    void opening(const std::function<void()>& act);
    void each(const Words& words, const std::function<void(QWidget&, const std::string&)>& work);
    [[nodiscard]] Answer answerOf(const Words& words) const;
    void expectBox(const Words& words);

    std::map<std::string, std::function<void(const Words&)>> verbs_;
    Section section_;
    std::unique_ptr<ConfigPage> page_;
    std::deque<Step> steps_;  // to come
    std::deque<Step> during_; // while the next box is open, or during the next pause
};

} // namespace onudesk::test
