// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_ip_vlan.h"

namespace onudesk {

TOnuIPVlan::TOnuIPVlan(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6254,
                  .refreshEmpties = true,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 1},
                 parent) {
    buildForm({
        {.control = "cvlanEdt",
         .labelId = 67901,
         .typing = {4, true},
         .position = 0,
         .object = {"onuManageVlanID"},
         .check = numberIn(1, 4094),
         .written = Written::always},
        {.control = "svlanEdt",
         .labelId = 67902,
         .typing = {4, true},
         .position = 1,
         .object = {"onuManageVlanID2"},
         .check = numberIn(0, 4094, EmptyText::takesFocus),
         .written = Written::always},
        {.control = "priorityEdt",
         .labelId = 67903,
         .typing = {1, true},
         .position = 2,
         .object = {"onuManagePriority"},
         .check = numberIn(1, 8),
         .written = Written::always},
        constant({"onuManageVlanRowStatus"}, "4"),
    });
    start();
}

} // namespace onudesk
