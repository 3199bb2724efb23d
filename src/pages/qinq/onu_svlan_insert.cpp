// SPDX-License-Identifier: MIT
#include "pages/qinq/svlan_page.h"

namespace onudesk {

SVlanRules onuSVlanInsert() {
    return {.helpKeyId = 6217,
            .minimumValues = 10,
            .numbers = {{"startvlanEdt", "QinQInsertCvlanStart", 64702, 64706},
                        {"endvlanEdt", "QinQInsertCvlanEnd", 64703, 64707},
                        {"outervlanEdt", "QinQInsertSvlan", 64704, 64708}},
            .otherRange = 6,
            .portBlocked = 4,
            .portCount = 8,
            .mode = 9,
            .modeRefusal = [](const std::string& mode) { return mode == "2" ? 0 : kNotFlexible; },
            .dialogName = "TOnuSVlanInsertItem",
            .rowStatus = "QinQInsertRowStatus",
            .dialogTitleId = 64705};
}

} // namespace onudesk
