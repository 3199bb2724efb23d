// SPDX-License-Identifier: MIT
#include "pages/mac/onu_mac_age.h"

namespace onudesk {

TOnuMacAge::TOnuMacAge(Session& session, std::int32_t itemType, QWidget* parent)
    : MacSwitchPage(session, itemType,
                    {.helpKeyId = 6225,
                     .enableId = 64301,
                     .value = {.control = "timeEdit",
                               .labelId = 64302,
                               .typing = {.digitsOnly = true},
                               .object = {"onuMacAgeTime"},
                               .check = numberIn(1, 1048575)}},
                    parent) {}

} // namespace onudesk
