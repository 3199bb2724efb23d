// SPDX-License-Identifier: MIT
#include "pages/mac/onu_mac_limit.h"

namespace onudesk {

TOnuMacLimit::TOnuMacLimit(Session& session, std::int32_t itemType, QWidget* parent)
    : MacSwitchPage(session, itemType,
                    {.helpKeyId = 6224,
                     .enableId = 62001,
                     .value = {.control = "countEdit",
                               .labelId = 62002,
                               .typing = {3, true},
                               .object = {"onuMacMaxNum"},
                               .check = numberIn(1, 1000)}},
                    parent) {}

} // namespace onudesk
