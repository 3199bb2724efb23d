// SPDX-License-Identifier: MIT
#include "pages/management/onu_cpu_car.h"

namespace onudesk {

TOnuCpuCar::TOnuCpuCar(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6251,
                  .group = "group1",
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .resultText = "group1",
                  .minimumValues = 1},
                 parent) {
    buildForm({{.control = "cpuEdit",
                .labelId = 91501,
                .position = 0,
                .object = {"onuCpuCarRate"},
                .check = numberIn(0, 10000, EmptyText::blankTakesFocus),
                .written = Written::always}});
    cpuEdit = fields().control<QLineEdit>("cpuEdit");
    start();
}

// A read takes Refresh away, not Config.
void TOnuCpuCar::refreshBtnClick() {
    const bool mayConfigure = configBtn->isEnabled();
    ConfigPage::refreshBtnClick();
    configBtn->setEnabled(mayConfigure);
}

void TOnuCpuCar::handleReply(const ReadResult& result) {
    digitsOnly(*cpuEdit);
    ConfigPage::handleReply(result);
}

} // namespace onudesk
