// SPDX-License-Identifier: MIT
#include "desk/program.h"

#include "desk/demo.h"
#include "desk/desk_window.h"
#include "desk/options.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QLocale>

namespace onudesk::desk {

namespace {

constexpr const char* kDemoOnu = "1.2.5";
constexpr std::uint32_t kEnglish = 1033;
constexpr std::uint32_t kSimplifiedChinese = 2052;

std::uint32_t systemLocale() {
    return QLocale::system().language() == QLocale::Chinese ? kSimplifiedChinese : kEnglish;
}

// Qt ends the process itself when it finds no display, and not in words.
bool mayHaveDisplay(const std::vector<std::string>& arguments) {
    const bool named = std::ranges::any_of(arguments, [](const std::string& argument) {
        return argument == "-platform" || argument == "--platform";
    });
    return named || qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void addFontFallback() {
    QFont font = QApplication::font();
    font.setFamilies(font.families() << QStringLiteral("WenQuanYi Micro Hei"));
    QApplication::setFont(font);
}

ExitCode failed(const std::string& text, ExitCode code) {
    std::cerr << "onudesk: " << text << '\n';
    return code;
}

ExitCode runDesk(const Options& options) {
    const auto client = options.client.value_or(host::ownClientDirectory());
    std::optional<Demo> demo;
    if (options.simulate) {
        Result<Demo> started = startDemo(client, options.recording);
        if (!started) {
            return failed(started.error(), exitClientFailed);
        }
        demo = std::move(started).value();
    }
    DeskWindow window(
        {.clientDirectory = client, .localeId = options.localeId.value_or(systemLocale())},
        demo ? demo->inventory : Inventory());
    window.show();
    if (demo) {
        window.setWindowTitle(QStringLiteral("OnuDesk, simulated agent[*]"));
        window.selectOnu(kDemoOnu);
    } else {
        window.openInventory(options.inventory.value_or(defaultInventoryFile()));
    }
    QApplication::exec();
    return exitOk;
}

} // namespace

ExitCode runProgram(int& argc, char** argv) {
    const std::vector<std::string> all(argv + std::min(argc, 1), argv + argc);
    if (const Result<Options> plain = parseOptions(all); plain && !plain->text.empty()) {
        std::cout << plain->text;
        return exitOk;
    }
    if (!mayHaveDisplay(all)) {
        return failed("no display: set DISPLAY or WAYLAND_DISPLAY", exitNoDisplay);
    }
    // Takes Qt's own arguments away.
    const QApplication application(argc, argv);
    addFontFallback();
    const Result<Options> options =
        parseOptions(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
    if (!options) {
        return failed(options.error(), exitUsage);
    }
    return runDesk(*options);
}

} // namespace onudesk::desk
