// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip.h"

namespace onudesk {

namespace {

Field account(const char* control, int labelId, std::size_t position, const char* object) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = 32},
            .position = position,
            .object = {object},
            .written = Written::whileEnabled};
}

} // namespace

TOnuVoip::TOnuVoip(Session& session, std::int32_t itemType, QWidget* parent)
    : VoicePage(session, itemType, voiceRules(6262, 12), "voipGlobalParamRowStatus", parent) {
    buildForm(
        {voiceChoice("modeComb", 82301, 0, "voipGlobalParamMode", modes_),
         addressField("ipEdit", 82302, 1, "voipGlobalParamIpAddr"),
         addressField("maskEdit", 82303, 2, "voipGlobalParamIpMask"),
         addressField("getwayEdit", 82304, 3, "voipGlobalParamDefaultGW"),
         voiceChoice("poeModeComb", 82305, 4, "voipGlobalParamPPPoEmode", logins_),
         account("nameEdit", 82306, 5, "voipGlobalParamPPPoEname"),
         account("passwordEdit", 82307, 6, "voipGlobalParamPPPoEpwd"),
         ticked("flagCheckb",
                voiceChoice("flagComb", 82308, 7, "voipGlobalParamTaggedFlag", tagging_)),
         ticked("cvlanCheckb", voiceNumber("cvlanEdit", 82309, -1, 8, "voipGlobalParamVoiceCvlan",
                                           numberIn(1, 4094))),
         ticked("svlanCheckb", voiceNumber("svlanEdit", 82310, -1, 9, "voipGlobalParamVoiceSvlan",
                                           numberIn(0, 4094, EmptyText::passes))),
         ticked("priorityCheckb", voiceNumber("priorityEdit", 82311, -1, 10,
                                              "voipGlobalParamVoicePriority", numberIn(1, 8))),
         constant({"voipGlobalParamRowStatus"}, "4")});
    modeComb = follow("modeComb", [this] { modeCombChange(); });
    start();
}

// Without a mode everything stays as it is.
void TOnuVoip::modeCombChange() {
    const auto mode = selectedCode(*modeComb);
    if (!mode) {
        return;
    }
    for (const char* name : {"ipEdit", "maskEdit", "getwayEdit"}) {
        fields().control(name)->setEnabled(mode == "0");
    }
    for (const char* name : {"poeModeComb", "nameEdit", "passwordEdit"}) {
        fields().control(name)->setEnabled(mode == "2");
    }
}

} // namespace onudesk
