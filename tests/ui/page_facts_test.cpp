// SPDX-License-Identifier: MIT
//
// Holds every page to its lines in pages.table, which says what they mean.
#include "env/language_module.h"
#include "mainform/page_table.h"
#include "page_steps.h"
#include "pages/framework/controls.h"
#include "pages/framework/row_table.h"

#include <algorithm>
#include <fstream>
#include <ostream>
#include <set>
#include <utility>

#include <QFile>
#include <QXmlStreamReader>

namespace onudesk::test {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

// A line of the table: its first words, and what it gives by name.
struct Row {
    std::string kind;
    std::string name;
    std::string label; // or value
    std::map<std::string, std::string> given{};

    [[nodiscard]] bool has(const char* key) const { return given.contains(key); }
    [[nodiscard]] std::string get(const char* key, const std::string& otherwise = {}) const {
        return has(key) ? given.at(key) : otherwise;
    }
    [[nodiscard]] std::size_t at() const { return std::stoul(get("at")); }
};

struct Facts {
    Row page;
    std::vector<Row> fields{};
    std::vector<Row> columns{};
    std::vector<Row> dialog{}; // it, and its fields
};

void PrintTo(const Facts& facts, std::ostream* out) {
    *out << facts.page.name;
}

Words split(const std::string& text, char separator) {
    Words parts;
    for (std::size_t from = 0; from <= text.size() && !text.empty();) {
        const std::size_t end = std::min(text.find(separator, from), text.size());
        parts.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return parts;
}

// "value:text|…" of one of these names.
Pairs pairsOf(const Row& row, std::initializer_list<const char*> keys) {
    Pairs pairs;
    for (const char* key : keys) {
        for (const std::string& part : split(row.get(key), '|')) {
            const std::size_t colon = part.find(':');
            pairs.emplace_back(part.substr(0, colon), part.substr(colon + 1));
        }
    }
    return pairs;
}

std::string shownOf(const Row& row, const std::string& value) {
    const auto pairs = pairsOf(row, {"codes", "shows"});
    const auto found = std::ranges::find(pairs, value, [](const auto& pair) { return pair.first; });
    return found == pairs.end() ? value : found->second;
}

// What is typed, with the box that refuses it or with what is written.
struct Trials {
    Pairs refused;
    Pairs taken;
};

Trials trialsOf(const Row& field) {
    Trials trials{pairsOf(field, {"bad"}), pairsOf(field, {"good"})};
    std::string emptyBox = "11069";
    if (field.has("hex") || field.has("range")) {
        const Words bounds = split(field.get("hex", field.get("range")), '.');
        const std::int64_t minimum = std::stoll(bounds[0]);
        const std::int64_t maximum = std::stoll(bounds[2]);
        const auto typed = [&field](std::int64_t number) {
            return QString::number(number, field.has("hex") ? 16 : 10).toStdString();
        };
        emptyBox = "11068 " + bounds[0] + " " + bounds[2];
        trials.taken = {{typed(minimum), bounds[0]}, {typed(maximum), bounds[2]}};
        trials.refused = {{typed(maximum + 1), emptyBox},
                          {minimum == 0 ? "-1" : typed(minimum - 1), emptyBox}};
    } else if (field.has("quad")) {
        trials = {{{"1.2.3", emptyBox}}, {{"1.1.1.1", "1.1.1.1"}}};
    } else if (field.has("mac")) {
        return {{{"0g:00:00:00:00:01", "3036 caption={113}"},
                 {"00:00:00:00:00:00", "3029 caption={113}"}},
                {{"00:1a:2b:3c:4d:5f", "#001A2B3C4D5F"}}};
    } else if (trials.refused.empty()) {
        return {};
    }
    const std::string empty = field.get("empty", "fails");
    if (empty == "passes") {
        trials.taken.emplace_back();
    } else {
        trials.refused.emplace_back("", empty == "fails" ? emptyBox : "");
        trials.refused.emplace_back("  ", empty == "blank" ? "" : emptyBox);
    }
    return trials;
}

std::vector<Facts> allFacts() {
    std::ifstream in(std::string(ONUDESK_SOURCE_DIR) + "/tests/ui/pages.table");
    std::vector<Facts> all;
    for (std::string line; std::getline(in, line);) {
        const Words words = wordsOf(line);
        if (words[0] == "//") {
            continue;
        }
        Row row{.kind = words[0], .name = words[1], .label = {}};
        for (std::size_t at = 2; at < words.size(); ++at) {
            const auto [name, value] = halves(words[at]);
            if (at == 2 && row.kind != "page" && row.kind != "column" && row.kind != "dialog") {
                row.label = name;
            } else {
                row.given[name] = value;
                std::erase(row.given[name], '"');
            }
        }
        if (row.kind == "page") {
            all.push_back({row});
        } else if (row.kind == "column") {
            all.back().columns.push_back(row);
        } else if (row.kind == "dialog" || !all.back().dialog.empty()) {
            all.back().dialog.push_back(row);
        } else {
            all.back().fields.push_back(row);
        }
    }
    for (std::size_t at = 0, count = all.size(); at < count; ++at) {
        if (all[at].page.has("also")) {
            all.push_back(all[at]);
            all.back().page.name = all[at].page.get("also");
        }
    }
    return all;
}

class PageFacts : public PageSteps, public testing::WithParamInterface<Facts> {
protected:
    const Facts& facts() const { return GetParam(); }

    void open() {
        PageSteps::open({.itemType = std::stoi(facts().page.name),
                         .subIndex = std::stoi(facts().page.get("sub", "-1")),
                         .group = facts().page.get("group", "maintable")});
    }
    // The step that answers a read with the sample.
    std::string sample(const std::string& more = {}) const {
        std::string step = "reply ";
        for (const std::string& value : split(facts().page.get("sample"), '|')) {
            step += "\"" + value + "\" ";
        }
        return step + (facts().page.has("oid") ? "oid=" + facts().page.get("oid") : "row=") + "9 " +
               more;
    }
    std::string sampleAt(std::size_t position) const {
        return split(facts().page.get("sample"), '|').at(position);
    }
    Words namesOf(const char* key) const {
        Words names;
        for (const std::string& button : split(facts().page.get(key), ',')) {
            names.push_back(button.substr(0, button.find(':')));
        }
        return names;
    }
    // Of keyed tables both samples are one row.
    std::string lastRow() const {
        const bool keyed = std::ranges::any_of(facts().columns,
                                               [](const Row& column) { return column.has("key"); });
        return keyed || facts().page.has("oid") ? "0" : "1";
    }
    bool hasRefresh() const { return facts().page.get("refresh") != "none"; }
    // What replies have put into the page.
    Words contents() {
        Words texts;
        for (const Row& field : facts().fields) {
            if (field.has("at")) {
                texts.push_back(stateOf(control(field.name)).text);
            }
        }
        const auto* table = page().findChild<RowTable*>();
        for (int row = 0; table != nullptr && row < table->rowCount(); ++row) {
            texts.push_back(joined(table->cells(row), "|"));
        }
        return texts;
    }
    // A page of which nothing was read gets this; it shows something or not.
    void expectShown(const std::string& step, bool shown) {
        open();
        const Words before = contents();
        run(step);
        EXPECT_EQ(contents() != before, shown) << step;
    }
};

TEST_P(PageFacts, ButtonsFollowTheRules) {
    const Row& rules = facts().page;
    open();
    bool requests = rules.has("ready");
    bool refresh = requests;
    const auto expectUsable = [&] {
        std::set<std::string> names;
        for (const char* key : {"still", "buttons"}) {
            for (const std::string& name : namesOf(key)) {
                if (requests || *key == 's') {
                    names.insert(name);
                }
            }
        }
        if (refresh && hasRefresh()) {
            names.insert("refreshBtn");
        }
        run("usable " + joined(Words(names.begin(), names.end()), " "));
    };
    const auto reply = [&](bool flag) {
        run(sample(flag ? "" : "flag=0"));
        requests = flag || !(rules.has("flag") || rules.has("flags"));
        refresh = rules.has("flags") ? flag : refresh;
        expectUsable();
    };
    const auto fail = [&] {
        run("fail");
        const std::string rule = rules.get("fail", "enables");
        requests = rule == "enables" || (rule == "leaves" && requests);
        expectUsable();
    };
    expectUsable();
    run(requests ? "timer off" : "timer on");
    if (!requests && hasRefresh()) {
        run("elapse");
        refresh = true;
        expectUsable();
    }
    reply(false);
    fail();
    reply(true);
    fail();
    reply(true);
    for (const char* key : {"buttons", "still"}) {
        for (const std::string& button : split(rules.get(key), ',')) {
            const auto colon = button.find(':');
            run("caption " + button.substr(0, colon) + "={" + button.substr(colon + 1) + "}");
        }
    }
    if (!hasRefresh()) {
        return;
    }
    run("caption refreshBtn={" + rules.get("refresh", "20002") + "} ; enable refreshBtn");
    const Words before = contents();
    run("click refreshBtn ; reads " + rules.get("read", ".1.2.5") + " ; timer on");
    const Words after = contents();
    EXPECT_EQ(before == after, !rules.has("empties") && facts().columns.empty());
    for (const std::string& text : after) {
        EXPECT_TRUE(text.empty() || !rules.has("empties")) << text;
    }
    requests = requests && rules.has("steady");
    refresh = false;
    expectUsable();
    run("again");
    run(rules.has("rereads") ? "reads " + rules.get("read", ".1.2.5") : "idle");
    run("elapse ; timer off");
}

TEST_P(PageFacts, RepliesAreShownByTheRules) {
    const Row& rules = facts().page;
    std::size_t first = facts().columns.empty() ? std::string::npos : 0; // value that is shown
    for (const Row& field : facts().fields) {
        first = field.has("at") ? std::min(first, field.at()) : first;
    }
    const std::size_t least = std::stoul(rules.get("least"));
    if (least > 0) {
        expectShown(sample("cut=" + std::to_string(least - 1)), false);
        expectShown(sample("cut=" + std::to_string(least)), first < least);
    }
    expectShown(sample("group=elsewhere"), !rules.has("own") && first != std::string::npos);
    const std::string answer = rules.get("answer", "both");
    open();
    run(sample() + " ; route write take ; written");
    if (answer == "both" || answer == "reads") {
        run("reads " + rules.get("read", ".1.2.5"));
    }
    run("idle");
    if (answer == "both" || answer == "tells") {
        run("box 11045 caption={11001} icon=information after={11002}");
    }
}

class ColumnFacts : public PageFacts {};

TEST_P(ColumnFacts, ShowTheirValues) {
    open();
    const auto& table = in<RowTable>(page(), "mainTable");
    const int count = table.model()->columnCount();
    ASSERT_EQ(count, std::ssize(facts().columns));
    for (int at = 0; at < count; ++at) {
        const Row& column = facts().columns[static_cast<std::size_t>(at)];
        EXPECT_EQ(bytesOf(table.model()->headerData(at, Qt::Horizontal).toString()),
                  messageText(std::stoi(column.name)));
        EXPECT_EQ(table.isColumnHidden(at), column.has("hidden"));
    }
    bool keyed = false;
    bool required = false;
    for (std::size_t at = 0; at < facts().columns.size(); ++at) {
        const Row& column = facts().columns[at];
        SCOPED_TRACE(at);
        const auto expectCell = [&](const std::string& step, const std::string& text) {
            open();
            run(step);
            EXPECT_EQ(in<RowTable>(page(), "mainTable").cell(0, at), text) << step;
        };
        const std::string position = column.get("at");
        keyed = keyed || column.has("key");
        required = required || column.has("required");
        for (const auto& [value, text] : pairsOf(column, {"codes", "shows"})) {
            expectCell(sample(position == "row"   ? "row=" + value
                              : position == "oid" ? ""
                                                  : "\"@" + position + "=" + value + "\""),
                       meaningOf(text));
        }
        if (position == "row" && !column.has("shows")) {
            expectCell(sample(), "9");
        } else if (position != "row" && position != "oid") {
            if (!column.has("shows")) {
                expectCell(sample(), meaningOf(shownOf(column, sampleAt(column.at()))));
            }
            if (column.has("codes") && !column.has("odd")) {
                expectCell(sample("@" + position + "=77"), "");
            }
        }
    }
    // A second row with the same key takes the place of the first.
    open();
    const auto& rows = in<RowTable>(page(), "mainTable");
    run(sample());
    run(sample(keyed ? "row=8" : "@0=1"));
    EXPECT_EQ(rows.rowCount(), 1);
    run(sample(keyed ? "@0=2" : facts().page.has("oid") ? "oid=1.3.8" : "row=8"));
    EXPECT_EQ(rows.rowCount(), 2);
    run(sample("oid=") + (keyed ? " @0=3" : ""));
    EXPECT_EQ(rows.rowCount(), required ? 2 : 3);
}

// The steps that hold a page's fields, or those of its dialog, to their lines.
class FormFacts : public PageFacts {
protected:
    void check(const std::vector<Row>& fields, const Row* dialog) {
        dialog_ = dialog;
        const std::string buttons =
            dialog == nullptr ? facts().page.get("buttons") : dialog->get("ok");
        press_ = buttons.substr(0, buttons.find(':'));
        instance_ = dialog == nullptr ? facts().page.get("instance", "1.2.5")
                                      : dialog->get("at", "1.2.5.9");
        checkFirstLook(fields);
        if (dialog == nullptr || !dialog->has("odd")) {
            checkWholeWrite(fields);
            checkOrder(fields);
        }
        for (const Row& field : fields) {
            SCOPED_TRACE(field.name);
            checkShown(field);
            checkTyping(field);
            checkBounds(field);
        }
    }

private:
    // Does the steps where the fields are, which leave a dialog open unless it is closed.
    void doInForm(const Words& steps, bool closed) {
        std::string line = sample();
        if (dialog_ != nullptr) {
            line = sample("row=7") + " ; " + dialog_->get("before", sample()) + " ; " + sample() +
                   (dialog_->has("norow") ? " ; row none" : " ; row " + lastRow()) + " ; enable " +
                   dialog_->get("by") + " ; click " + dialog_->get("by");
        } else if (!press_.empty()) {
            line += " ; enable " + press_;
        }
        for (const std::string& step : steps) {
            line += " ; " + step;
        }
        run(line + (dialog_ != nullptr && !closed ? " ; cancel" : "") + " ; drain");
    }
    // What makes the field writable.
    Words prepared(const Row& field) const {
        Words steps;
        if (dialog_ != nullptr && dialog_->has("do")) {
            steps.push_back(dialog_->get("do"));
        }
        if (field.has("tick")) {
            steps.push_back("tick " + field.get("tick"));
        }
        if (field.has("do")) {
            steps.push_back(field.get("do"));
        }
        return steps;
    }
    // What the field shows of the sample, or of the sample's row.
    std::string firstText(const Row& field) const {
        if (dialog_ == nullptr) {
            return shownOf(field, sampleAt(field.at()));
        }
        const Row& column = facts().columns.at(field.at());
        return column.get("at") == "row" ? shownOf(column, "9")
                                         : shownOf(column, sampleAt(column.at()));
    }
    // What a write makes of that.
    std::string firstValue(const Row& field) const {
        if (field.has("value") || !field.has("at")) {
            return field.get("value");
        }
        const std::string position =
            dialog_ == nullptr ? field.get("at") : facts().columns.at(field.at()).get("at");
        return position == "row" ? "9" : sampleAt(std::stoul(position));
    }
    void checkFirstLook(const std::vector<Row>& fields) {
        Words steps;
        if (dialog_ != nullptr) {
            steps.push_back("dialog {" + dialog_->name + "}");
            for (const char* key : {"ok", "cancel"}) {
                const Words button = split(dialog_->get(key), ':');
                steps.push_back("caption " + button[0] + "={" + button[1] + "}");
            }
        }
        std::map<std::string, std::string> labels; // of ticks
        for (const Row& field : fields) {
            if (field.kind == "const") {
                continue;
            }
            const std::string tick = field.get("tick");
            const std::string caption =
                field.has("label") ? field.get("label") : "{" + field.label + "}";
            if (tick.empty() || (labels.contains(tick) && labels[tick] != field.label)) {
                steps.push_back("caption \"" + field.get("caption", field.name + "Label") + "=" +
                                caption + "\"");
            } else if (labels.try_emplace(tick, field.label).second) {
                steps.push_back("caption \"" + tick + "=" + caption + "\"");
            }
            if (field.has("unit")) {
                steps.push_back("caption " + field.name + "Unit=" + field.get("unit"));
            }
            if (field.has("at")) {
                steps.push_back("see \"" + field.name + "=" + firstText(field) + "\"");
            }
            const bool writable = field.has("writes") || field.has("range") || field.has("digits");
            if (field.has("locked") || (!writable && (field.has("at") || field.kind != "combo"))) {
                steps.push_back("locked " + field.name);
            }
        }
        doInForm(steps, false);
    }
    void checkWholeWrite(const std::vector<Row>& fields) {
        Words steps;
        std::string writes = "writes @" + instance_;
        if (dialog_ != nullptr && dialog_->has("do")) {
            steps.push_back(dialog_->get("do"));
        }
        for (const Row& field : fields) {
            if (field.kind == "const") {
                const std::size_t dot = field.name.find('.');
                writes += " \"" + field.name.substr(dot == std::string::npos ? 0 : dot + 1) + "=" +
                          field.label + "\"";
            } else if (field.has("writes") && !field.has("off")) {
                writes += " \"" + field.get("writes") + "=" + firstValue(field) + "\"";
                if (field.has("tick")) {
                    steps.push_back("tick " + field.get("tick"));
                }
            }
        }
        if (writes.find('=') == std::string::npos) {
            return;
        }
        steps.push_back("click " + press_);
        steps.push_back(writes);
        if (dialog_ != nullptr) {
            steps.push_back(dialog_->has("stays") ? "idle"
                                                  : "reads " + facts().page.get("read", ".1.2.5"));
            if (!dialog_->has("norow")) { // what was edited is selected when it comes again
                steps.push_back(sample("row=7"));
                steps.push_back(sample());
                steps.push_back("selected " + lastRow());
            }
        } else {
            Words left;
            const Words taken =
                facts().page.has("writing") ? namesOf("writing") : namesOf("buttons");
            for (const std::string& name : namesOf("buttons")) {
                if (std::ranges::count(taken, name) == 0) {
                    left.push_back(name);
                }
            }
            steps.push_back("usable " + joined(left, " "));
        }
        doInForm(steps, true);
    }
    // With all of them wrong the first one is refused, then the second one…
    void checkOrder(const std::vector<Row>& fields) {
        Words wrong;
        Words mended;
        for (const Row& field : fields) {
            const Trials trials = trialsOf(field);
            if (field.has("off") || trials.refused.empty()) {
                continue;
            }
            if (field.has("tick")) {
                wrong.push_back("tick " + field.get("tick"));
            }
            const auto& [bad, box] = trials.refused.front();
            wrong.push_back("set \"" + field.name + "=" + bad + "\"");
            mended.push_back("refused " + press_ + " " + field.name + " " + box);
            mended.push_back("set \"" + field.name + "=" + trials.taken.front().first + "\"");
        }
        wrong.insert(wrong.end(), mended.begin(), mended.end());
        doInForm(wrong, false);
    }
    void checkShown(const Row& field) {
        if (!field.has("at") || dialog_ != nullptr) {
            return;
        }
        std::string last;
        for (const auto& [value, text] : pairsOf(field, {"codes", "shows"})) {
            run(sample("\"@" + field.get("at") + "=" + value + "\" ; see \"" + field.name + "=" +
                       text + "\""));
            last = text;
        }
        if (field.has("codes") && !field.has("shows")) {
            run(sample("@" + field.get("at") + "=77 ; see \"" + field.name + "=" +
                       (field.has("keeps") ? last : "") + "\""));
        }
    }
    void checkTyping(const Row& field) {
        const bool digits = field.has("digits");
        if (!digits && !field.has("chars")) {
            return;
        }
        std::string typed = digits ? "1234567890123" : std::string(70, 'a');
        const std::string limit = field.get(digits ? "digits" : "chars");
        const std::string taken = limit.empty() ? typed : typed.substr(0, std::stoul(limit));
        typed.insert(1, digits ? "x-" : "");
        Words steps = prepared(field);
        steps.push_back("set " + field.name + "=");
        steps.push_back("type " + field.name + "=" + typed);
        steps.push_back("see " + field.name + "=" + taken);
        doInForm(steps, false);
    }
    void checkBounds(const Row& field) {
        Trials trials = trialsOf(field);
        if (field.has("writes")) {
            for (const auto& [value, text] : pairsOf(field, {"codes"})) {
                trials.taken.emplace_back(text, value);
            }
        }
        const auto set = [&](const std::string& typed) {
            Words steps = prepared(field);
            steps.push_back("set \"" + field.name + "=" + typed + "\"");
            return steps;
        };
        for (const auto& [typed, value] : trials.taken) {
            Words steps = set(typed);
            steps.push_back("click " + press_);
            steps.emplace_back("writes ...");
            if (field.has("writes")) {
                steps.back() += " @" + (field.has("instance") ? "1.2.5." + value : instance_) +
                                " \"" + field.get("writes") + "=" + value + "\"";
            }
            doInForm(steps, true);
        }
        for (const auto& [typed, box] : trials.refused) {
            Words steps = set(typed);
            steps.push_back("refused " + press_ + " " + field.name + " " + box);
            doInForm(steps, false);
        }
    }

    const Row* dialog_ = nullptr;
    std::string press_;
    std::string instance_;
};

TEST_P(FormFacts, ShowCheckAndWrite) {
    open();
    check(facts().fields, nullptr);
}

class DialogFacts : public FormFacts {};

TEST_P(DialogFacts, ShowCheckAndWrite) {
    const Row& dialog = facts().dialog.front();
    const std::string by = dialog.get("by");
    const std::string reads =
        dialog.has("stays") ? "idle" : "reads " + facts().page.get("read", ".1.2.5");
    open();
    run(sample("row=7") + " ; " + dialog.get("before", sample()) + " ; " + sample() + " ; enable " +
        by);
    if (!dialog.has("norow")) {
        run("refused " + by + " mainTable 11204 ; row " + lastRow());
    }
    run("click " + by + " ; cancel ; dialog ; " + reads);
    EXPECT_EQ(in<RowTable>(page(), "mainTable").rowCount() == 0, !dialog.has("stays"));
    open();
    check({facts().dialog.begin() + 1, facts().dialog.end()}, &dialog);
}

std::string nameOf(const testing::TestParamInfo<Facts>& info) {
    return "page" + info.param.page.name + (info.param.page.has("sub") ? "port" : "") +
           (info.param.page.has("odd") ? "odd" : "");
}

auto factsWith(bool (*has)(const Facts&)) {
    std::vector<Facts> some = allFacts();
    std::erase_if(some, [has](const Facts& facts) { return !has(facts); });
    return testing::ValuesIn(some);
}

INSTANTIATE_TEST_SUITE_P(Pages, PageFacts,
                         factsWith([](const Facts& all) { return !all.page.has("odd"); }), nameOf);
INSTANTIATE_TEST_SUITE_P(Pages, ColumnFacts,
                         factsWith([](const Facts& all) { return !all.columns.empty(); }), nameOf);
INSTANTIATE_TEST_SUITE_P(Pages, FormFacts,
                         factsWith([](const Facts& all) { return !all.fields.empty(); }), nameOf);
INSTANTIATE_TEST_SUITE_P(Pages, DialogFacts,
                         factsWith([](const Facts& all) { return !all.dialog.empty(); }), nameOf);

TEST(PageFactsTable, HasEveryPage) {
    std::set<std::int32_t> told;
    for (const Facts& facts : allFacts()) {
        told.insert(std::stoi(facts.page.name));
    }
    for (const PageEntry& entry : pageTable()) {
        EXPECT_EQ(told.contains(entry.itemType), entry.create != nullptr) << entry.itemType;
    }
}

// Bounds of pages are their own. Where they are not those of the ONU, the table says so.
TEST(PageFactsTable, BoundsAreThoseOfTheCatalogue) {
    QFile file(QStringLiteral(ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::map<std::string, std::string> ranges;
    std::string module;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext()) {
        const auto attribute = [&xml](const char* name) {
            return xml.attributes().value(QLatin1String(name)).toString().toStdString();
        };
        if (xml.isStartElement() && xml.name() == QLatin1String("module")) {
            module = attribute("name");
        } else if (xml.isStartElement() && xml.name() == QLatin1String("object")) {
            ranges[module + attribute("name")] = attribute("range");
        }
    }
    for (const Facts& facts : allFacts()) {
        for (const auto* fields : {&facts.fields, &facts.dialog}) {
            for (const Row& field : *fields) {
                if (field.has("writes") && (field.has("range") || field.has("hex"))) {
                    EXPECT_EQ(ranges[facts.page.name + field.get("writes")],
                              field.get("onu", field.get("hex", field.get("range"))))
                        << facts.page.name << " " << field.name;
                }
            }
        }
    }
}

} // namespace
} // namespace onudesk::test
