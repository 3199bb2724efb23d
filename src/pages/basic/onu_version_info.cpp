// SPDX-License-Identifier: MIT
#include "pages/basic/plain_pages.h"

namespace onudesk {

RecordPage onuVersionInfo() {
    return {.rules = {.helpKeyId = 6203,
                      .config = {},
                      .start = StartState::ready,
                      .refreshEmpties = true,
                      .minimumValues = 9},
            .fields = {{.control = "vendorEdit", .labelId = 60501, .position = 0},
                       {.control = "vendorModelEdit", .labelId = 60502, .position = 1},
                       {.control = "vendorIdEdit", .labelId = 60503, .position = 2},
                       {.control = "softEdt", .labelId = 60504, .position = 3},
                       {.control = "hardEdt", .labelId = 60505, .position = 4},
                       {.control = "chipvendorEdt", .labelId = 60506, .position = 6},
                       {.control = "chipmodelEdt", .labelId = 60507, .position = 5},
                       {.control = "chipIcEdit", .labelId = 60508, .position = 7},
                       {.control = "firmWareEdit", .labelId = 60509, .position = 8}},
            .centred = true};
}

} // namespace onudesk
