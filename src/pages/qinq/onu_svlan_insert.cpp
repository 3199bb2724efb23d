// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_svlan_insert.h"

namespace onudesk {

TOnuSVlanInsert::TOnuSVlanInsert(Session& session, std::int32_t itemType, QWidget* parent)
    : SVlanPage(
          session, itemType,
          {.helpKeyId = 6217,
           .minimumValues = 10,
           .numbers = {{"startvlanEdt", "QinQInsertCvlanStart", 64702, 64706},
                       {"endvlanEdt", "QinQInsertCvlanEnd", 64703, 64707},
                       {"outervlanEdt", "QinQInsertSvlan", 64704, 64708}},
           .otherRange = 6,
           .portBlocked = 4,
           .portCount = 8,
           .mode = 9,
           .modeRefusal = [](const std::string& mode) { return mode == "2" ? 0 : kNotFlexible; },
           .rowStatus = "QinQInsertRowStatus",
           .dialogTitleId = 64705},
          parent) {}

void TOnuSVlanInsert::openRow(int /*row*/) {
    TOnuSVlanInsertItem(*this).exec();
}

} // namespace onudesk
