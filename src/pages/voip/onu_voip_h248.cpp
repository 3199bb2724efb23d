// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip_h248.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr const char* kByDomain = "1";

} // namespace

TOnuVoipH248::TOnuVoipH248(Session& session, std::int32_t itemType, QWidget* parent)
    : H248Page(session, itemType, voiceRules(6263, 14), "H248ParamRowStatus", 13, parent) {
    const ValueMap active(
        {{"backup", "0"}, {"primary", "1"}, {messageText(message::unsupported), "255"}});
    const ValueMap registrations({{"IP", "0"}, {"Domain", kByDomain}, {"Device", "2"}});
    const ValueMap heartbeats({{messageText(message::off), "0"}, {messageText(message::on), "1"}});
    const ValueMap states({{"registering", "0"},
                           {"registered", "1"},
                           {"IAD fault", "2"},
                           {"logout", "3"},
                           {"rebooting", "4"},
                           {messageText(message::unsupported), "255"}});
    buildForm(
        {voiceNumber("mgEdit", 82401, 5, 0, "H248ParamMGPortNo", needed(0, 65535)),
         addressField("mgcIpEdit", 82402, 1, "H248ParamMGCIp"),
         voiceNumber("mgcPortEdit", 82403, 5, 2, "H248ParamMgcPortNo", needed(1, 65535)),
         ticked("backCheckb", addressField("backIpEdit", 82404, 3, "H248ParamBackupMgcIp")),
         ticked("backCheckb", voiceNumber("backPortEdit", 82405, 5, 4, "H248ParamBackupMgcPortNo",
                                          needed(1, 65535))),
         {.control = "activeEdit",
          .labelId = 82406,
          .position = 5,
          .codes = active.keepingUnknown()},
         ticked("regCheckb", voiceChoice("regComb", 82407, 6, "H248ParamRegMode", registrations)),
         {.control = "midMemo",
          .labelId = 82408,
          .kind = ControlKind::memo,
          .typing = {.bytes = 64},
          .position = 7,
          .object = {"H248ParamMID"},
          .written = Written::whileEnabled,
          .enabledBy = {.tick = "regCheckb", .list = "regComb", .codes = {kByDomain}}},
         ticked("modeCheckb",
                voiceChoice("modeComb", 82409, 8, "H248ParamHeartbeatMode", heartbeats)),
         ticked("cycleCheckb", voiceNumber("cycleEdit", 82410, -1, 9, "H248ParamHeartbeatCycle",
                                           needed(0, 65535))),
         ticked("countCheckb",
                voiceNumber("countEdit", 82411, -1, 10, "H248ParamHeartbeatCount", needed(0, 255))),
         {.control = "statusEdit",
          .labelId = 82412,
          .position = 12,
          .codes = states.keepingUnknown()},
         rowStatus({"H248ParamRowStatus"})});
    start();
}

} // namespace onudesk
