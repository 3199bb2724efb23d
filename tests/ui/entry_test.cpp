// SPDX-License-Identifier: MIT
//
// The plug-in as a host meets it: loaded by name, reached through its three exports.
#include "bridge/code_para_access.h"
#include "entry/show_form.h"
#include "onudesk/exports.h"
#include "platform/desktop.h"
#include "platform/window_messages.h"
#include "ui_test.h"

#include <cstring>
#include <fstream>
#include <set>

#include <dlfcn.h>
#include <elf.h>

#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>

namespace onudesk {
namespace {

// Names of the defined dynamic symbols of a 64-bit ELF file.
std::set<std::string> exportedSymbols(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string image((std::istreambuf_iterator<char>(file)), {});
    const auto read = [&image](auto& into, std::size_t offset) {
        std::memcpy(&into, image.data() + offset, sizeof into);
    };
    Elf64_Ehdr header{};
    read(header, 0);
    std::set<std::string> names;
    for (std::size_t at = 0; at < header.e_shnum; ++at) {
        Elf64_Shdr section{};
        Elf64_Shdr strings{};
        read(section, header.e_shoff + at * header.e_shentsize);
        if (section.sh_type != SHT_DYNSYM) {
            continue;
        }
        read(strings, header.e_shoff + section.sh_link * header.e_shentsize);
        for (std::size_t offset = 0; offset < section.sh_size; offset += sizeof(Elf64_Sym)) {
            Elf64_Sym symbol{};
            read(symbol, section.sh_offset + offset);
            if (symbol.st_shndx != SHN_UNDEF) {
                names.insert(image.data() + strings.sh_offset + symbol.st_name);
            }
        }
    }
    return names;
}

TEST(Exports, AreThreeAndNoMore) {
    EXPECT_EQ(exportedSymbols(ONUCONFIG_FILE),
              (std::set<std::string>{"ShowHolderConfigForm", "newDllClientCodePara",
                                     "deleteDllClientCodePara"}));
}

// Closes the window at the end of a step inside it, also when an assertion ends the step early.
class CloseAtEnd {
public:
    explicit CloseAtEnd(QWidget* form) : form_(form) {}
    ~CloseAtEnd() {
        if (form_ != nullptr) {
            form_->close();
        }
    }
    CloseAtEnd(const CloseAtEnd&) = delete;
    CloseAtEnd& operator=(const CloseAtEnd&) = delete;

private:
    QWidget* form_;
};

class PluginTest : public test::UiTest {
protected:
    PluginTest() : library_(::dlopen(ONUCONFIG_FILE, RTLD_NOW | RTLD_LOCAL)) {
        param.oltNumber = 1;
        param.ponNumber = 2;
        param.onuNumber = 5;
        param.subIndex = -1;
        param.localeId = 1033;
        std::strcpy(param.agentAddress, "10.1.1.1");
        std::strcpy(param.menuFileName, "epononuother_menu.xml");
    }
    ~PluginTest() override { ::dlclose(library_); }

    template <typename Function>
    Function symbol(const char* name) {
        return reinterpret_cast<Function>(::dlsym(library_, name));
    }
    void show() {
        const std::uint32_t thread = host.threadId();
        symbol<ShowHolderConfigFormFn>(kShowHolderConfigForm)(
            static_cast<QApplication*>(QApplication::instance()), &host.routes, &param, &thread,
            test::TestHost::releaseFn());
    }
    // Its title, when it is closed at once.
    QString showTitle() {
        QString title;
        QTimer::singleShot(0, [&] {
            title = window()->windowTitle();
            window()->close();
        });
        show();
        return title;
    }
    static QWidget* window() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QStringLiteral("TConfigMainForm") && widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }

    HolderConfigParam param{};

private:
    void* library_;
};

TEST_F(PluginTest, ContainersAreMadeAndFreed) {
    const auto make = symbol<NewDllClientCodeParaFn>(kNewDllClientCodePara);
    const auto free = symbol<DeleteDllClientCodeParaFn>(kDeleteDllClientCodePara);
    DllClientCodePara* para = make();
    ASSERT_NE(para, nullptr);
    EXPECT_TRUE(setInteger(*para, CP_SNMP_PORT, 161));
    free(&para);
    EXPECT_EQ(para, nullptr);
    free(&para);
    EXPECT_EQ(para, nullptr);
}

TEST_F(PluginTest, RunsASessionInsideTheHostsLoopAndReturnsWhenClosed) {
    for (int call = 0; call < 2; ++call) {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            QWidget* form = window();
            const CloseAtEnd closing(form);
            ASSERT_NE(form, nullptr);
            seen = true;
            EXPECT_TRUE(form->isModal());
            EXPECT_TRUE(
                form->windowTitle().contains(QStringLiteral("(IP:10.1.1.1  OLT:1 PON:2 ONU:5)")));
            EXPECT_EQ(platform::currentApplication(), QApplication::instance());
        });
        show();
        EXPECT_TRUE(seen);
        EXPECT_EQ(window(), nullptr);
        EXPECT_TRUE(host.routes.routes.empty());
    }
}

TEST_F(PluginTest, SavesTheApplicationOnceAndGivesItBackAtTheEnd) {
    auto* application = static_cast<QApplication*>(QApplication::instance());
    auto* const own = reinterpret_cast<QApplication*>(&session); // never touched, only kept
    platform::setCurrentApplication(own);
    for (int call = 0; call < 2; ++call) {
        QTimer::singleShot(0, [] { window()->close(); });
        showConfigForm(application, &host.routes, param, host.threadId(),
                       test::TestHost::releaseFn());
        EXPECT_EQ(platform::currentApplication(), application);
    }
    restoreApplication();
    EXPECT_EQ(platform::currentApplication(), own);
    restoreApplication(); // nothing is saved any more
    EXPECT_EQ(platform::currentApplication(), own);
    platform::setCurrentApplication(application);
}

TEST_F(PluginTest, DeliversRepliesPostedWhileTheWindowIsOpen) {
    std::string llid;
    QTimer::singleShot(0, [&] {
        QWidget* form = window();
        const CloseAtEnd closing(form);
        auto* tree = form->findChild<QTreeWidget*>(QStringLiteral("ConfigItemTree"));
        for (QTreeWidgetItem* item :
             tree->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive)) {
            if (item->data(0, Qt::UserRole).toInt() == 606) {
                tree->setCurrentItem(item);
                Q_EMIT tree->itemClicked(item, 0);
            }
        }
        ASSERT_TRUE(host.take());
        std::vector<std::string> values(22);
        values[0] = "001A2B3C4D5E";
        values[1] = "26";
        const auto route = host.routes.routes.find(routeKey(CP_KIND_READ, 606));
        ASSERT_NE(route, host.routes.routes.end());
        ASSERT_TRUE(platform::postWindowMessage(
            route->second.window,
            {route->second.message, test::TestHost::makeReply({.values = values, .status = 1}), 0,
             nullptr}));
        while (platform::pendingWindowMessages() > 0) {
            QCoreApplication::processEvents();
        }
        llid = form->findChild<QLineEdit*>(QStringLiteral("llidEdt"))->text().toStdString();
    });
    show();
    EXPECT_EQ(llid, "1A");
}

TEST_F(PluginTest, LanguageFollowsTheBlocksLocale) {
    const QString english = showTitle();
    param.localeId = 2052;
    EXPECT_NE(showTitle(), english);
}

TEST_F(PluginTest, BlocksWithoutTerminatorsAreHarmless) {
    std::memset(&param, 'x', sizeof param);
    param.subIndex = -1;
    const QString title = showTitle();
    EXPECT_TRUE(title.contains(QString(100, QLatin1Char('x'))));
    EXPECT_FALSE(title.contains(QString(101, QLatin1Char('x'))));
}

} // namespace
} // namespace onudesk
