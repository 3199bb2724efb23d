// SPDX-License-Identifier: MIT
#include "platform/desktop.h"

#include <cstdio>
#include <string_view>
#include <thread>
#include <utility>

namespace onudesk::platform {

namespace {
Desktop* g_desktop = nullptr;
QApplication* g_application = nullptr;
} // namespace

void Desktop::pause(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

Desktop* installDesktop(Desktop* desktop) {
    return std::exchange(g_desktop, desktop);
}

Desktop* installedDesktop() {
    return g_desktop;
}

void openHelp(const std::string& book, const std::string& topic) {
    if (g_desktop != nullptr) {
        g_desktop->showHelp(book, topic);
    }
}

bool runCommand(const std::string& line) {
    constexpr std::string_view prefix = "hh mk:@MSITStore:";
    constexpr std::string_view separator = "::/";
    if (g_desktop != nullptr) {
        g_desktop->noteCommand(line);
    }
    if (!line.starts_with(prefix)) {
        return false;
    }
    const std::string target = line.substr(prefix.size());
    const auto split = target.rfind(separator);
    if (split == std::string::npos) {
        return false;
    }
    openHelp(target.substr(0, split), target.substr(split + separator.size()));
    return true;
}

void noteProblem(const std::string& text) {
    std::fprintf(stderr, "onuconfig: %s\n", text.c_str());
}

void pause(std::chrono::milliseconds time) {
    if (g_desktop != nullptr) {
        g_desktop->pause(time);
    } else {
        std::this_thread::sleep_for(time);
    }
}

QApplication* currentApplication() {
    return g_application;
}

void setCurrentApplication(QApplication* application) {
    g_application = application;
}

} // namespace onudesk::platform
