// SPDX-License-Identifier: MIT
#include "base/file.h"
#include "env/help_index.h"
#include "env/language_module.h"
#include "mainform/page_table.h"
#include "pages/framework/controls.h"
#include "platform/files.h"
#include "ui_test.h"
#include "window/object_catalogue.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace onudesk {
namespace {

class PageTableTest : public test::UiTest {
protected:
    // Calls it with every page that there is.
    void forEachPage(const std::function<void(const PageEntry&, ConfigPage&)>& work) {
        for (const PageEntry& entry : pageTable()) {
            if (const std::unique_ptr<ConfigPage> page{
                    createPage(session, entry.itemType, nullptr)}) {
                SCOPED_TRACE(entry.itemType);
                work(entry, *page);
            }
        }
    }
    // The topic that the page's help button shows.
    std::string topicOf(ConfigPage& page) {
        desk.help.clear();
        page.helpBtnClick();
        EXPECT_EQ(desk.help.size(), 1U);
        return desk.help.empty() ? std::string() : desk.help[0].topic;
    }
};

TEST_F(PageTableTest, EveryPageOpensUnderItsClassNameWithItsCatalogue) {
    std::set<std::int32_t> seen;
    for (const PageEntry& entry : pageTable()) {
        EXPECT_TRUE(seen.insert(entry.itemType).second) << entry.itemType;
        EXPECT_FALSE(messageText(entry.itemType).empty()) << entry.itemType;
    }
    EXPECT_EQ(seen.size(), 56U);
    int pages = 0;
    forEachPage([&](const PageEntry& entry, const ConfigPage& page) {
        ++pages;
        EXPECT_EQ(bytesOf(page.objectName()), entry.className);
        EXPECT_EQ(page.itemType(), entry.itemType);
        for (const Field& field : page.fields().list()) {
            const ObjectName& object = field.object;
            const std::string& group = object.group.empty() ? page.rules().group : object.group;
            EXPECT_TRUE(object.name.empty() || lookup(page.catalogue(), group, object.name))
                << group << " " << object.name;
        }
    });
    EXPECT_EQ(pages, 51);
    EXPECT_EQ(createPage(session, 4711, nullptr), nullptr);
}

TEST_F(PageTableTest, PagesAreDescribedWithoutHostOrOperator) {
    const std::vector<PageFacts> pages = describePages();
    std::map<std::string, const PageFacts*> byName;
    for (const PageFacts& page : pages) {
        byName.emplace(page.className, &page);
        EXPECT_FALSE(page.topic.empty()) << page.className;
        EXPECT_EQ(page.rules.rereadsWhenShown, page.itemType == 608 || page.itemType == 612);
        EXPECT_EQ(page.buttons.empty() ? "" : page.buttons.back().name, "helpBtn");
        const bool opens = page.rules.config.name != nullptr && !page.columns.empty();
        EXPECT_EQ(page.dialogs.size(), opens ? 1U : 0U) << page.className;
        for (const DialogFacts& dialog : page.dialogs) {
            EXPECT_TRUE(dialog.name.starts_with("TOnu")) << page.className;
            EXPECT_FALSE(messageText(dialog.titleId).empty()) << dialog.name;
        }
    }
    EXPECT_EQ(pages.size(), 52U);
    EXPECT_EQ(byName.size(), 51U) << "two items share a page, one item has two";
    const PageFacts& filter = *byName.at("TOnuMacFilter");
    const auto isButton = [](const ButtonFact& fact, const char* name, int id, ButtonUse use) {
        return fact.name == name && fact.captionId == id && fact.use == use;
    };
    ASSERT_EQ(filter.buttons.size(), 4U);
    EXPECT_TRUE(isButton(filter.buttons[0], "cfgBtn", 61906, ButtonUse::config));
    EXPECT_TRUE(isButton(filter.buttons[1], "deleteBtn", 61907, ButtonUse::remove));
    EXPECT_TRUE(isButton(filter.buttons[2], "refreshBtn", 61908, ButtonUse::refresh));
    EXPECT_TRUE(isButton(filter.buttons[3], "helpBtn", 20003, ButtonUse::help));
    ASSERT_EQ(filter.dialogs.size(), 1U);
    EXPECT_EQ(filter.dialogs[0].fields.size(), 3U);
    EXPECT_TRUE(isButton(filter.dialogs[0].buttons.at(0), "OK", 20005, ButtonUse::ok));
    EXPECT_TRUE(isButton(filter.dialogs[0].buttons.at(1), "Cancel", 20006, ButtonUse::cancel));
    ASSERT_EQ(filter.limits.size(), 1U);
    EXPECT_EQ(filter.limits[0].control, "vlanEdit");
    EXPECT_EQ(filter.limits[0].object.group, "maintable");
    EXPECT_EQ(filter.limits[0].range.maximum, 4094);
    EXPECT_TRUE(filter.deletion && filter.deletion->asks);
    EXPECT_EQ(filter.messageIds,
              (std::vector<int>{3029, 3036, 11045, 11046, 11057, 11058, 11068, 11204}));
    EXPECT_EQ(byName.at("TOnuControlMulti")->ports->countPosition, 4U);
    EXPECT_EQ(byName.at("TOnuPortVlan")->dialogs[0].name, "TOnuPvidItem");
    EXPECT_EQ(byName.at("TOnuPortStatusP")->itemType, 617);
}

// The client tree as built, with a catalogue of one object a row.
class OtherCatalogue {
public:
    void write(const std::string& item, const std::string& group,
               const std::map<std::string, std::string>& objects) const {
        std::string text =
            "<snmpconfig><module name=\"" + item + "\"><group name=\"" + group + "\">";
        for (const auto& [name, oid] : objects) {
            text += "<object name=\"" + name + "\" oidstr=\"" + oid + "\" type=\"2\"/>";
        }
        directory_.write("CONF/snmp/snmpconfig.xml", text + "</group></module></snmpconfig>");
    }

private:
    const test::TemporaryDirectory directory_;
    const test::ClientTree tree_{directory_.path()};
};

TEST_F(PageTableTest, RowsAreDeletedWhereverTheCatalogueHasTheirObjects) {
    desk.answer = platform::PromptAnswer::yes;
    struct Case {
        std::int32_t item;
        const char* first; // object of the first value
        const char* status;
        const char* oid; // of the first object where the catalogue does not have it
        std::vector<std::string> values;
    };
    const Case cases[] = {{619,
                           "onuMacBlackHoleMac",
                           "onuMacBlackHoleRowStatus",
                           "1.3.6.1.4.1.27315.1.9.5.2.1.1",
                           {"001A2B3C4D5E", "7", "0", ""}},
                          {621,
                           "multiMacIndex",
                           "multiRowStatus",
                           "1.3.6.1.4.1.27315.1.9.6.3.1.1",
                           {"1", "01005E010203", "7", "0", "2", "1", ""}}};
    for (const Case& each : cases) {
        for (const bool isListed : {true, false}) {
            const OtherCatalogue catalogue;
            std::map<std::string, std::string> objects = {{each.status, "1.2.3.9"}};
            if (isListed) {
                objects.emplace(each.first, "1.2.3.1");
            }
            catalogue.write(std::to_string(each.item), "maintable", objects);
            const std::unique_ptr<ConfigPage> page(createPage(session, each.item, nullptr));
            auto& list = static_cast<ListPage&>(*page);
            registerReadRoute(session, each.item, page->replyHandle());
            const std::string oid = isListed ? "1.2.3.1" : each.oid;
            ASSERT_TRUE(host.replyRead(each.item, {.values = each.values,
                                                   .oids = std::vector{oid + ".1.2.5.8"},
                                                   .status = 1,
                                                   .resultText = "maintable"}));
            list.mainTable->selectRow(0);
            test::click(*list.deleteBtn);
            EXPECT_EQ(desk.takeBox().text, messageText(11057)) << each.item;
            EXPECT_EQ(takeWrite().back(), std::string(each.status) + "@1.2.5.8=6");
        }
    }
}

TEST_F(PageTableTest, ARestartTakesTheCatalogueAsItIsAtTheClick) {
    const OtherCatalogue catalogue;
    const std::unique_ptr<ConfigPage> page(createPage(session, 622, nullptr));
    EXPECT_EQ(desk.takeBox().text, messageText(11140));
    desk.answer = platform::PromptAnswer::yes;
    test::click(*page->configBtn);
    const auto boxes = desk.takeBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text, messageText(11140)) << "before the question";
    EXPECT_EQ(host.pending(), 0U);
    catalogue.write("622", "resetoid", {{"onuReset", "1.2.3"}});
    test::click(*page->configBtn);
    EXPECT_EQ(desk.takeBox().text, messageText(11077));
    EXPECT_EQ(takeWrite(), std::vector<std::string>{"onuReset@1.2.5=1"});
}

TEST_F(PageTableTest, HelpButtonsShowTheTopicOfTheirPage) {
    loadHelpIndexOnce(messageText(6201));
    forEachPage([this](const PageEntry& entry, ConfigPage& page) {
        EXPECT_EQ(topicOf(page) == helpTopic(entry.itemType), entry.topic != nullptr);
    });
}

// What Refresh does differs from page to page; the topics say so in both languages.
TEST_F(PageTableTest, TopicsSayOfRefreshWhatTheRulesSay) {
    loadHelpIndexOnce(messageText(6201));
    const auto says = [](const std::string& topic, const char* text) {
        const auto path = platform::resolveClientPath("..\\Help\\confighelp\\" + topic);
        Result<std::string> book = readFile(path.value_or(topic));
        EXPECT_TRUE(book) << topic;
        std::string words = book ? std::move(book).value() : std::string();
        std::ranges::replace(words, '\n', ' ');
        return words.find(text) != std::string::npos;
    };
    forEachPage([&](const PageEntry& /*entry*/, ConfigPage& page) {
        const std::string english = topicOf(page);
        const std::string chinese = english.substr(0, english.rfind('.')) + ".zh.htm";
        const bool early = page.rules().flagSetsRefresh;
        EXPECT_EQ(says(english, "Usable when the list is complete, or after four"), early);
        EXPECT_EQ(says(chinese, "列表读取完成或四秒之后可用"), early);
        const bool empties = page.rules().refreshEmpties;
        EXPECT_EQ(says(english, "Empties the fields and reads"), empties);
        EXPECT_EQ(says(chinese, "字段并重新读取"), empties);
    });
}

TEST_F(PageTableTest, ControlsHaveNamesOfTheirOwnAndLabels) {
    forEachPage([](const PageEntry& /*entry*/, const ConfigPage& page) {
        std::set<QString> names;
        for (const QWidget* control : page.findChildren<QWidget*>()) {
            const QString name = control->objectName();
            if (!name.isEmpty() && !name.startsWith(QStringLiteral("qt_"))) {
                EXPECT_TRUE(names.insert(name).second) << bytesOf(name);
            }
            const bool input = qobject_cast<const QLineEdit*>(control) != nullptr ||
                               qobject_cast<const QComboBox*>(control) != nullptr;
            if (input && !name.startsWith(QStringLiteral("qt_"))) {
                EXPECT_FALSE(control->accessibleName().isEmpty()) << bytesOf(name);
            }
        }
    });
}

TEST_F(PageTableTest, TopicsOfPagesAreInTheHelpBook) {
    EXPECT_EQ(helpTopic(606), "onuBasic.htm");
    EXPECT_EQ(helpTopic(675), "onuIp.htm");
    for (const std::int32_t itemType : {0, 811, 915, 4711}) {
        EXPECT_EQ(helpTopic(itemType), "onuVersion.htm");
    }
    for (const PageEntry& entry : pageTable()) {
        if (entry.create != nullptr) {
            EXPECT_TRUE(
                platform::resolveClientPath("..\\Help\\confighelp\\" + helpTopic(entry.itemType)))
                << entry.itemType;
        }
    }
}

} // namespace
} // namespace onudesk
