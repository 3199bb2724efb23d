// SPDX-License-Identifier: MIT
#include "pages/qinq/svlan_page.h"

namespace onudesk {

namespace {

constexpr int kQinQIsOff = 3048;

int refusalOf(const std::string& state) {
    switch (leadingNumber(state).value_or(0)) {
    case 1:
        return kNotFlexible;
    case 2:
        return kQinQIsOff;
    default:
        return 0;
    }
}

} // namespace

SVlanRules onuSVlanPassThrough() {
    return {.helpKeyId = 6218,
            .minimumValues = 9,
            .numbers = {{"startvlanEdt", "QinQPassVlanStart", 64801, 64804},
                        {"endvlanEdt", "QinQPassVlanEnd", 64802, 64805}},
            .otherRange = 3,
            .portBlocked = 6,
            .portCount = 8,
            .mode = 5,
            .modeRefusal = refusalOf,
            .dialogName = "TOnuSVlanPassThroughItem",
            .rowStatus = "QinQPassRowStatus",
            .dialogTitleId = 64803,
            .typedBytes = 4};
}

} // namespace onudesk
