// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_svlan_pass_through.h"

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

TOnuSVlanPassThrough::TOnuSVlanPassThrough(Session& session, std::int32_t itemType, QWidget* parent)
    : SVlanPage(session, itemType,
                {.helpKeyId = 6218,
                 .minimumValues = 9,
                 .numbers = {{"startvlanEdt", "QinQPassVlanStart", 64801, 64804},
                             {"endvlanEdt", "QinQPassVlanEnd", 64802, 64805}},
                 .otherRange = 3,
                 .portBlocked = 6,
                 .portCount = 8,
                 .mode = 5,
                 .modeRefusal = refusalOf,
                 .rowStatus = "QinQPassRowStatus",
                 .dialogTitleId = 64803,
                 .typedBytes = 4},
                parent) {}

void TOnuSVlanPassThrough::openRow(int /*row*/) {
    TOnuSVlanPassThroughItem(*this).exec();
}

} // namespace onudesk
