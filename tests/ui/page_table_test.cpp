// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "mainform/page_table.h"
#include "pages/framework/controls.h"
#include "platform/files.h"
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
