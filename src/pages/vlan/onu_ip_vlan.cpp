// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/vlan/plain_pages.h"

namespace onudesk {

RecordPage onuIPVlan() {
    return {.rules = {.helpKeyId = 6254,
                      .refreshEmpties = true,
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables,
                      .minimumValues = 1},
            .fields = {numberField("cvlanEdt", 67901, 4, 0, "onuManageVlanID", numberIn(1, 4094)),
                       numberField("svlanEdt", 67902, 4, 1, "onuManageVlanID2",
                                   numberIn(0, 4094, EmptyText::takesFocus)),
                       numberField("priorityEdt", 67903, 1, 2, "onuManagePriority", numberIn(1, 8)),
                       rowStatus({"onuManageVlanRowStatus"})}};
}

} // namespace onudesk
