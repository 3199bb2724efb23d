// SPDX-License-Identifier: MIT
#include "entry/show_form.h"

#include "entry/message_pump.h"
#include "entry/screen.h"
#include "env/language_module.h"
#include "mainform/config_main_form.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <optional>

namespace onudesk {

namespace {

TConfigMainForm* g_mainForm = nullptr;
std::optional<QApplication*> g_savedApplication;

// Puts boxes and help on the screen unless the host brought its own ways, and takes them away
// again.
class ScreenServices {
public:
    ScreenServices() {
        if (platform::installedPrompter() == nullptr) {
            platform::installPrompter(&prompter_);
        }
        if (platform::installedDesktop() == nullptr) {
            platform::installDesktop(&desktop_);
        }
    }
    ~ScreenServices() {
        if (platform::installedPrompter() == &prompter_) {
            platform::installPrompter(nullptr);
        }
        if (platform::installedDesktop() == &desktop_) {
            platform::installDesktop(nullptr);
        }
    }
    ScreenServices(const ScreenServices&) = delete;
    ScreenServices& operator=(const ScreenServices&) = delete;

private:
    ScreenPrompter prompter_;
    ScreenDesktop desktop_;
};

// Remembers the open window for as long as it is open.
class OpenForm {
public:
    explicit OpenForm(TConfigMainForm& form) { g_mainForm = &form; }
    ~OpenForm() { g_mainForm = nullptr; }
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;
};

void adoptApplication(QApplication* application) {
    if (!g_savedApplication) {
        g_savedApplication = platform::currentApplication();
        platform::setCurrentApplication(application);
    }
}

} // namespace

void showConfigForm(QApplication* application, ReplyRouteTable* routeTable,
                    const HolderConfigParam& param, std::uint32_t hostThreadId,
                    ReleaseCodeParaFn releaseFn) {
    if (g_mainForm != nullptr) {
        g_mainForm->raise();
        g_mainForm->activateWindow();
        return;
    }
    adoptApplication(application);
    LoadNewResourceModule(platform::moduleFileName(reinterpret_cast<const void*>(&showConfigForm)),
                          param.localeId);
    Session session;
    session.hostThreadId = hostThreadId;
    session.routeTable = routeTable;
    session.releaseFn = releaseFn;
    const MessagePump pump;
    const ScreenServices services;
    TConfigMainForm form(session);
    const OpenForm open(form);
    startSession(param, session);
    form.exec();
}

void restoreApplication() {
    if (g_savedApplication) {
        platform::setCurrentApplication(*g_savedApplication);
        g_savedApplication.reset();
    }
}

} // namespace onudesk
