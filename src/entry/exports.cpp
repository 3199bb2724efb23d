// SPDX-License-Identifier: MIT
#include "onudesk/exports.h"
#include "bridge/code_para_access.h"
#include "entry/show_form.h"

#define ONUCONFIG_EXPORT extern "C" __attribute__((visibility("default")))

ONUCONFIG_EXPORT int ShowHolderConfigForm(QApplication* application,
                                          onudesk::ReplyRouteTable* routeTable,
                                          const onudesk::HolderConfigParam* param,
                                          const std::uint32_t* hostThreadId,
                                          onudesk::ReleaseCodeParaFn releaseFn) {
    try {
        onudesk::showConfigForm(application, routeTable, *param, *hostThreadId, releaseFn);
    } catch (...) {
        // Nothing in the window throws; what the toolkit or a shortage of memory throws must not
        // cross into the host.
    }
    return 0;
}

ONUCONFIG_EXPORT onudesk::DllClientCodePara* newDllClientCodePara() {
    return onudesk::createCodePara().release();
}

ONUCONFIG_EXPORT void deleteDllClientCodePara(onudesk::DllClientCodePara** holder) {
    onudesk::destroyCodePara(*holder);
    *holder = nullptr;
}

namespace {

// Runs when the library is unloaded.
struct Unload {
    Unload() = default;
    ~Unload() { onudesk::restoreApplication(); }
    Unload(const Unload&) = delete;
    Unload& operator=(const Unload&) = delete;
};
const Unload g_unload;

} // namespace
