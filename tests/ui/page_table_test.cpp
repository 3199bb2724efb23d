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
        const std::unique_ptr<ConfigPage> page(createPage(session, entry.itemType, nullptr));
        ASSERT_EQ(page != nullptr, entry.create != nullptr);
        if (page) {
            EXPECT_EQ(bytesOf(page->objectName()), entry.className);
            EXPECT_EQ(page->itemType(), entry.itemType);
        }
    }
    EXPECT_EQ(seen.size(), 56U);
    EXPECT_EQ(createPage(session, 0, nullptr), nullptr);
    EXPECT_EQ(createPage(session, 4711, nullptr), nullptr);
}

TEST_F(PageTableTest, FieldsNameObjectsOfTheCatalogue) {
    forEachPage([](const PageEntry& /*entry*/, const ConfigPage& page) {
        for (const ObjectName& object : page.fields().objects()) {
            const std::string& group = object.group.empty() ? page.rules().group : object.group;
            EXPECT_NE(lookup(page.catalogue(), group, object.name), nullptr)
                << group << " " << object.name;
        }
    });
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
