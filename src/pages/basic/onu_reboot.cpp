// SPDX-License-Identifier: MIT
#include "pages/basic/onu_reboot.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kRestartQuestion = 11077;
constexpr int kResetEntry = 62202;

} // namespace

TOnuReboot::TOnuReboot(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6241,
                  .group = "resetoid",
                  .config = {"configBtn", message::okay},
                  .refresh = {},
                  .start = StartState::ready},
                 parent) {
    restartWayComb = FormGrid(*centredPanel(), 1).combo("restartWayComb", 62201);
    restartWayComb->addItem(shown(messageText(kResetEntry)));
    start();
}

bool TOnuReboot::mayWrite() {
    return !resets() || confirm(messageText(kRestartQuestion), messageText(message::refusalCaption),
                                replyHandle());
}

void TOnuReboot::bindWrite(WriteRequest& request) {
    request.bind({"onuReset"}, resets() ? "1" : "0", session().OnuIndexText, 1);
}

void TOnuReboot::handleWriteReply(void* reply) {
    writeResultNotice(session(), replyHandle(), reply, {});
}

void TOnuReboot::configBtnClick() {
    reloadCatalogue();
    ConfigPage::configBtnClick();
    configBtn->setEnabled(true);
}

} // namespace onudesk
