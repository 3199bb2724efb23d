// SPDX-License-Identifier: MIT
#include "env/client_paths.h"
#include "env/language_module.h"
#include "mainform/page_table.h"
#include "pages/framework/controls.h"
#include "platform/files.h"
#include "snmp/object_catalogue.h"
#include "ui_test.h"

#include <filesystem>
#include <set>

namespace onudesk {
namespace {

class PageTableTest : public test::UiTest {};

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
    for (const PageEntry& entry : pageTable()) {
        const std::unique_ptr<const ConfigPage> page(createPage(session, entry.itemType, nullptr));
        if (!page) {
            continue;
        }
        for (const ObjectName& object : page->fields().objects()) {
            const std::string& group = object.group.empty() ? page->rules().group : object.group;
            EXPECT_NE(lookup(page->catalogue(), group, object.name), nullptr)
                << entry.itemType << " " << group << " " << object.name;
        }
    }
}

TEST_F(PageTableTest, HelpButtonsShowTheTopicOfTheirPage) {
    loadHelpIndexOnce(messageText(6201));
    for (const PageEntry& entry : pageTable()) {
        const std::unique_ptr<ConfigPage> page(createPage(session, entry.itemType, nullptr));
        if (!page) {
            continue;
        }
        desk.help.clear();
        page->helpBtnClick();
        ASSERT_EQ(desk.help.size(), 1U) << entry.itemType;
        if (entry.topic != nullptr) {
            EXPECT_EQ(desk.help[0].topic, helpTopic(entry.itemType));
        } else {
            EXPECT_NE(desk.help[0].topic, helpTopic(entry.itemType)) << entry.itemType;
        }
    }
}

TEST_F(PageTableTest, ControlsHaveNamesOfTheirOwnAndLabels) {
    for (const PageEntry& entry : pageTable()) {
        const std::unique_ptr<const ConfigPage> page(createPage(session, entry.itemType, nullptr));
        std::set<QString> names;
        for (const QWidget* control : page ? page->findChildren<QWidget*>() : QList<QWidget*>()) {
            const QString name = control->objectName();
            if (!name.isEmpty() && !name.startsWith(QStringLiteral("qt_"))) {
                EXPECT_TRUE(names.insert(name).second) << entry.itemType << " " << bytesOf(name);
            }
            const bool input = qobject_cast<const QLineEdit*>(control) != nullptr ||
                               qobject_cast<const QComboBox*>(control) != nullptr;
            if (input && !name.startsWith(QStringLiteral("qt_"))) {
                EXPECT_FALSE(control->accessibleName().isEmpty())
                    << entry.itemType << " " << bytesOf(name);
            }
        }
    }
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
