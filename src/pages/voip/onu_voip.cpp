// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip.h"

namespace onudesk {

namespace {

constexpr const char* kStatic = "0";
constexpr const char* kPPPoE = "2";

// Without a mode everything stays as it is.
Field inMode(const char* code, Field field) {
    field.enabledBy = choiceIn("modeComb", {code}, true);
    return field;
}

FieldCheck outerVlan() {
    return numberIn(0, 4094);
}

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
    const ValueMap modes({{"static IP", kStatic}, {"DHCP", "1"}, {"PPPoE", kPPPoE}});
    const ValueMap logins({{"AUTO", "0"}, {"CHAP", "1"}, {"PAP", "2"}});
    const ValueMap tagging({{"trasparent", "0"}, {"tag", "1"}, {"vlan-stacking", "2"}});
    buildForm(
        {voiceChoice("modeComb", 82301, 0, "voipGlobalParamMode", modes),
         inMode(kStatic, addressField("ipEdit", 82302, 1, "voipGlobalParamIpAddr")),
         inMode(kStatic, addressField("maskEdit", 82303, 2, "voipGlobalParamIpMask")),
         inMode(kStatic, addressField("getwayEdit", 82304, 3, "voipGlobalParamDefaultGW")),
         inMode(kPPPoE, voiceChoice("poeModeComb", 82305, 4, "voipGlobalParamPPPoEmode", logins)),
         inMode(kPPPoE, account("nameEdit", 82306, 5, "voipGlobalParamPPPoEname")),
         inMode(kPPPoE, account("passwordEdit", 82307, 6, "voipGlobalParamPPPoEpwd")),
         ticked("flagCheckb",
                voiceChoice("flagComb", 82308, 7, "voipGlobalParamTaggedFlag", tagging)),
         ticked("cvlanCheckb", voiceNumber("cvlanEdit", 82309, -1, 8, "voipGlobalParamVoiceCvlan",
                                           numberIn(1, 4094))),
         ticked("svlanCheckb",
                voiceNumber("svlanEdit", 82310, -1, 9, "voipGlobalParamVoiceSvlan", outerVlan())),
         ticked("priorityCheckb", voiceNumber("priorityEdit", 82311, -1, 10,
                                              "voipGlobalParamVoicePriority", numberIn(1, 8))),
         rowStatus({"voipGlobalParamRowStatus"})});
    start();
}

// An outer VLAN may be left empty.
bool TOnuVoip::mayWrite() {
    const bool isEmpty = stateOf(*fields().control("svlanEdit")).text.empty();
    fields().at("svlanEdit").check = isEmpty ? std::nullopt : std::optional(outerVlan());
    return VoicePage::mayWrite();
}

} // namespace onudesk
