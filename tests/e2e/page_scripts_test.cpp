// SPDX-License-Identifier: MIT
//
// One row per script of a page: what the agent holds before and after it.
#include "script_session.h"

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::test {
namespace {

constexpr const char* kNone = "No Such Instance currently exists at this OID";

struct Object {
    std::string oid;
    std::string before;
    std::string after;
};

struct ScriptRun {
    const char* script;
    const char* onu;
    std::vector<Object> objects;
    std::vector<std::string> options = {}; // more of them for onuctl
    int status = 0;
};

// Runs on one agent, each in a window of its own.
struct PageScripts {
    const char* name;
    std::vector<ScriptRun> runs;
};

// Item, group, column and instance.
std::string object(const char* rest) {
    return std::string("1.3.6.1.4.1.27315.") + rest;
}

// How the test's name calls it.
void PrintTo(const PageScripts& page, std::ostream* out) {
    *out << page.name;
}

std::string basic(const char* columnAndOnu) {
    return std::string("1.3.6.1.4.1.27315.606.1.1.") + columnAndOnu;
}

std::vector<PageScripts> pageScripts() {
    const std::string mac = "\"0A 1B 2C 3D 4E 5F \"";
    return {
        {"basicName",
         {{"basic_name.onu",
           "1.2.5",
           {{basic("19.1.2.5"), "\"Fire station\"",
             "\"4B 65 6C 6C 65 72 20 3C 33 3E 20 E5 8C 97 \""}}},
          {"basic_name_delete.onu",
           "1.2.5",
           {{basic("19.1.2.5"), "\"4B 65 6C 6C 65 72 20 3C 33 3E 20 E5 8C 97 \"", "\"\""}}}}},
        {"basicMac",
         {{"basic_mac_write.onu",
           "1.1.4",
           {{basic("20.1.1.4"), "\"00 00 00 00 00 00 \"", mac}, {basic("21.1.1.4"), kNone, kNone}}},
          {"basic_mac_bind.onu",
           "1.1.4",
           {{basic("20.1.1.4"), mac, mac}, {basic("21.1.1.4"), kNone, "1"}}},
          {"basic_mac_delete.onu",
           "1.1.4",
           {{basic("20.1.1.4"), mac, kNone}, {basic("21.1.1.4"), "1", kNone}}}}},
        {"basicMacTaken",
         {{"basic_mac_taken.onu",
           "1.1.4",
           {{basic("20.1.2.5"), "\"00 1A 2B AA BB 05 \"", "\"00 1A 2B AA BB 05 \""},
            {basic("21.1.1.4"), kNone, "3"}}}}},
        {"snmpSettings",
         {{"snmp_settings.onu", "1.2.5", {{object("915.1.1.1.1.2.5"), "1500", "77"}}}}},
        {"version", {{"version.onu", "1.2.5", {}}}},
        {"reboot", {{"reboot.onu", "1.2.5", {}}}},
        {"dba",
         {{"dba.onu",
           "1.2.5",
           {{object("608.1.1.2.1.2.5"), "20000", "30000"},
            {object("608.1.1.8.1.2.5"), "0", "3"},
            {object("608.1.1.17.1.2.5"), "0", "2"}}}}},
        {"ip",
         {{"ip.onu",
           "1.2.5",
           {{object("500.1.1.2.1.2.5"), "10.20.2.15", "10.20.2.77"},
            {object("675.1.1.2.1.2.5"), "172.16.2.5", "172.16.2.5"},
            {object("675.1.1.4.1.2.5"), "172.16.0.1", "172.16.0.9"}}}}},
        {"cpuRate", {{"cpu_rate.onu", "1.2.5", {{object("915.1.1.1.1.2.5"), "1500", "10000"}}}}},
        {"portVlan",
         {{"port_vlan.onu",
           "1.2.5",
           {{object("612.1.1.2.1.2.5.1"), "0", "1"},
            {object("612.1.1.3.1.2.5.1"), "0", "55"},
            {object("612.1.3.4.1.2.5.3.1"), "10", kNone},
            {object("612.1.3.4.1.2.5.3.2"), "20", "20"},
            {object("612.1.3.4.1.2.5.3.3"), kNone, "30"},
            {object("612.1.3.5.1.2.5.3.3"), kNone, "1030"}}}}},
        {"portMode", {{"port_mode.onu", "1.2.5", {{object("677.1.1.1.1.2.5.3"), "1", "2"}}}}},
        {"vlanTable",
         {{"vlan_table.onu",
           "1.2.5",
           {{object("611.1.1.2.1.2.5.100"), "1", kNone},
            {object("611.1.1.4.1.2.5.250"), kNone, "1"}}}}},
        {"vlanMode", {{"vlan_mode.onu", "1.2.5", {{object("767.1.1.1.1.2.5"), "1", "2"}}}}},
        {"managementVlan",
         {{"management_vlan.onu",
           "1.2.5",
           {{object("679.1.1.1.1.2.5"), "4094", "300"}, {object("679.1.1.3.1.2.5"), "7", "8"}}}}},
        {"queues",
         {{"queues.onu",
           "1.2.5",
           {{object("650.1.1.2.1.2.5"), "\"8,4,2,1\"", "\"8,15,2,1\""},
            {object("650.1.1.3.1.2.5"), "1", "1"},
            {object("651.1.1.1.1.2.5.1"), "0", "3"},
            {object("652.1.1.1.1.2.5.6"), "6", "7"}}}}},
        {"rates",
         {{"rates.onu",
           "1.2.5",
           {{object("607.1.1.3.1.2.5.1"), "20000", "1523"},
            {object("607.1.1.6.1.2.5.1"), "20000", "20001"},
            {object("607.1.1.5.1.2.5.2"), "0", "1"},
            {object("664.1.1.1.1.2.5"), "10000", "10000"},
            {object("664.1.1.4.1.2.5"), "512", "255"}}}}},
        {"lineTerminal",
         {{"line_terminal.onu",
           "1.2.5",
           {{object("812.1.1.1.1.2.5"), "10.1.0.17", "10.2.0.3"},
            {object("813.1.1.1.1.2.5"), "3661", "82861"},
            {object("813.1.1.2.1.2.5"), "105", "82"},
            {object("817.1.1.1.1.2.5"), "1", "2"}}},
          {"line_terminal_one_pon.onu", "1.1.2", {{object("817.1.1.1.1.1.2"), "0", "0"}}}}},
        {"voiceLines",
         {{"voice_lines.onu",
           "1.2.5",
           {{object("816.1.1.1.1.2.5.4"), "22", "0"},
            {object("815.1.1.3.1.2.5.1"), "\"Line 1\"", "\"Gate\nhouse\""}}}}},
        {"link",
         {{"link.onu",
           "1.2.5",
           {{object("616.1.1.2.1.2.5"), "2", "3"},
            {object("649.1.1.1.1.2.5"), "0", "1"},
            {object("772.1.1.1.1.2.5"), "0", "1"}}},
          {"link_refused.onu", "1.1.2", {{object("616.1.1.2.1.1.2"), "3", "3"}}}}},
        {"opticalAlarm", {{"optical_alarm.onu", "1.2.5", {{object("665.1.1.1.1.2.5"), "1", "2"}}}}},
        {"opticalDiagnosis",
         {{"optical_diagnosis.onu", "1.2.5", {}}, {"optical_diagnosis_none.onu", "1.1.3", {}}}},
        {"opticalThresholds",
         {{"optical_thresholds.onu",
           "1.2.5",
           {{object("667.1.1.1.1.2.5"), "\"75\"", "\"60\""},
            {object("667.1.1.2.1.2.5"), "\"-10\"", "\"-10\""},
            {object("667.1.1.15.1.2.5"), "\"2.5119\"", "\"1.9953\""},
            {object("667.1.1.16.1.2.5"), "\"0.5\"", "\"0.4467\""}},
           {},
           1}, // the page does not tell what the agent refused
          {"optical_thresholds_new.onu",
           "1.1.2",
           {{object("667.1.1.21.1.1.2"), "0", "1"},
            {object("667.1.1.5.1.1.2"), "\"0\"", "\"3.55\""},
            {object("667.1.1.6.1.1.2"), "\"0\"", "\"2.95\""},
            {object("667.1.1.13.1.1.2"), "\"0\"", "\"3.1623\""}},
           {},
           1}}},
        {"portStatus",
         {{"port_status.onu",
           "1.2.5",
           {{object("617.1.1.1.1.2.5.1"), "1", "0"},
            {object("617.1.1.2.1.2.5.1"), "0", "0"},
            {object("617.1.1.3.1.2.5.1"), "1", "2"}}},
          {"port_status_single.onu",
           "1.2.5",
           {{object("617.1.1.1.1.2.5.3"), "0", "1"}, {object("617.1.1.3.1.2.5.3"), "2", "1"}},
           {"--sub", "3", "--item", "617"}}}},
        {"poe",
         {{"poe.onu", "1.2.5", {{object("888.1.1.1.1.2.5.2"), "1", "0"}}},
          {"poe_unsupported.onu", "1.1.2", {}}}},
        {"serial",
         {{"serial.onu",
           "1.2.5",
           {{object("763.1.1.2.1.2.5.1"), "1", "0"},
            {object("763.1.1.2.1.2.5.3"), "0", "3"},
            {object("763.1.1.3.1.2.5.3"), "0", "6789"},
            {object("763.1.1.5.1.2.5.3"), "5", "0"}}}}},
        {"capability", {{"capability.onu", "1.2.5", {}}, {"capability_other.onu", "1.2.3", {}}}},
        {"classification",
         {{"classification.onu",
           "1.2.5",
           {{object("613.1.1.1.1.2.5.1.1"), "1", "0"},
            {object("613.1.1.1.1.2.5.1.3"), "0", "3"},
            {object("613.1.1.9.1.2.5.1.3"), "0", "2048"},
            {object("613.1.1.15.1.2.5.1.3"), "0", "100"}}}}},
        {"multicastMode",
         {{"multicast_mode.onu",
           "1.2.5",
           {{object("624.1.1.1.1.2.5"), "1", "0"}, {object("624.1.1.2.1.2.5"), "2", "1"}}}}},
        {"multicastReport",
         {{"multicast_report.onu",
           "1.2.5",
           {{object("625.1.1.1.1.2.5.1"), "1", "1"}, {object("625.1.1.1.1.2.5.2"), "0", "1"}}}}},
        {"controllableMulticast",
         {{"controllable_multicast.onu",
           "1.2.5",
           {{object("1.9.6.3.1.2.1.2.5.1.3"), "\"00 00 00 00 00 00 \"", "\"01 00 5E 01 02 04 \""},
            {object("1.9.6.3.1.4.1.2.5.1.3"), "0", "1"},
            {object("1.9.6.3.1.3.1.2.5.1.1"), "100", "4094"},
            {object("1.9.6.3.1.3.1.2.5.1.2"), "101", "0"},
            {object("1.9.6.3.1.7.1.2.5.1.2"), "1", "2"}}}}},
        {"igmpLimits",
         {{"igmp_limits.onu",
           "1.2.5",
           {{object("626.1.2.1.1.2.5.1"), "10", "5"},
            {object("626.1.2.2.1.2.5.1"), "\"8,9,11-15\"", "\"8,12-15\""}}},
          {"igmp_limits_locked.onu", "1.1.2", {{object("626.1.1.1.1.1.2"), "1", "1"}}}}},
        {"macLimit", {{"mac_limit.onu", "1.2.5", {{object("620.1.1.1.1.2.5"), "256", "999"}}}}},
        {"macAge",
         {{"mac_age.onu",
           "1.2.5",
           {{object("643.1.1.1.1.2.5"), "300", "0"},
            {object("643.1.1.1.1.2.1"), "1048575", "1048575"}}}}},
        {"macFilter",
         {{"mac_filter.onu",
           "1.2.5",
           {{object("1.9.5.2.1.2.1.2.5.1"), "100", "100"},
            {object("1.9.5.2.1.1.1.2.5.2"), "\"00 1A 2B 3C 4D 5E \"", kNone},
            {object("1.9.5.2.1.1.1.2.5.3"), kNone, "\"0A 00 00 00 00 02 \""},
            {object("1.9.5.2.1.2.1.2.5.3"), kNone, "7"}}}}},
        {"macFilterFull",
         {{"mac_filter_full.onu",
           "1.1.2",
           {{object("1.9.5.2.1.2.1.1.2.16"), kNone, "4094"},
            {object("1.9.5.2.1.4.1.1.2.8"), "1", kNone},
            {object("1.9.5.2.1.3.1.1.2.1"), "0", "0"}}}}},
        {"macMaxNum",
         {{"mac_max_num.onu",
           "1.2.5",
           {{object("644.1.1.1.1.2.5.3"), "128", "128"},
            {object("644.1.1.1.1.2.5.4"), "1000", "0"}}}}},
        {"qinqMode",
         {{"qinq_mode.onu",
           "1.2.5",
           {{object("645.1.1.1.1.2.5"), "2", "1"},
            {object("645.1.1.2.1.2.5"), "34984", "65535"},
            {object("647.1.1.10.1.2.5.1.1"), "2", "1"},
            {object("648.1.1.6.1.2.5.1.1"), "0", "1"}}}}},
        {"qinqRole",
         {{"qinq_role.onu",
           "1.2.5",
           {{object("645.1.1.1.1.2.5"), "2", "0"}, {object("646.1.2.1.1.2.5.4"), "1", "2"}}}}},
        {"svlanInsert",
         {{"svlan_insert.onu",
           "1.2.5",
           {{object("647.1.1.2.1.2.5.1.1"), "100", kNone},
            {object("647.1.1.3.1.2.5.1.3"), kNone, "60"},
            {object("647.1.1.4.1.2.5.1.3"), kNone, "77"}}},
          {"svlan_insert_static.onu",
           "1.1.1",
           {{object("647.1.1.6.1.1.1.2.1"), "1", kNone},
            {object("647.1.1.6.1.1.1.2.0"), kNone, "3"}}}}},
        {"svlanPass",
         {{"svlan_pass.onu",
           "1.2.5",
           {{object("648.1.1.2.1.2.5.1.2"), "4000", kNone},
            {object("648.1.1.3.1.2.5.2.1"), kNone, "4094"},
            {object("648.1.1.3.1.2.5.2.0"), "0", kNone}}},
          {"svlan_pass_off.onu", "1.2.3", {}},
          {"svlan_pass_static.onu", "1.2.2", {}}}},
        {"voipIad", {{"voip_iad.onu", "1.2.5", {}}, {"voip_iad_none.onu", "1.1.3", {}}}},
        {"voip",
         {{"voip.onu",
           "1.2.5",
           {{object("823.1.1.1.1.2.5"), "0", "2"},
            {object("823.1.1.2.1.2.5"), "10.40.2.5", "10.40.2.5"},
            {object("823.1.1.6.1.2.5"), "\"onu-1-2-5\"", "\"fire@isp.example\""},
            {object("823.1.1.10.1.2.5"), "1000", "1000"},
            {object("823.1.1.11.1.2.5"), "7", "1"}}},
          {"voip_delete.onu",
           "1.2.5",
           {{object("823.1.1.1.1.2.5"), "2", "1"},
            {object("823.1.1.2.1.2.5"), "10.40.2.5", "0.0.0.0"},
            {object("823.1.1.11.1.2.5"), "1", "1"},
            {object("823.1.1.12.1.2.5"), "1", "1"}}}}},
        {"h248",
         {{"h248.onu",
           "1.2.5",
           {{object("824.1.1.1.1.2.5"), "2944", "2999"},
            {object("824.1.1.4.1.2.5"), "10.41.0.2", "10.41.0.2"},
            {object("824.1.1.8.1.2.5"), "\"onu5.pon2.voice.example\"", "\"gw5.example\""},
            {object("824.1.1.9.1.2.5"), "1", "0"},
            {object("824.1.1.11.1.2.5"), "3", "255"}}},
          {"h248_delete.onu",
           "1.2.5",
           {{object("824.1.1.2.1.2.5"), "10.41.0.1", "10.41.0.9"},
            {object("824.1.1.8.1.2.5"), "\"gw5.example\"", "\"\""}}},
          {"h248_sip.onu", "1.1.2", {{object("824.1.1.12.1.1.2"), "1", "1"}}}}},
        {"rtp",
         {{"rtp.onu",
           "1.2.5",
           {{object("825.1.1.1.1.2.5"), "8", "255"},
            {object("825.1.1.2.1.2.5"), "\"A\"", "\"\""},
            {object("825.1.1.4.1.2.5"), "0", "0"},
            {object("825.1.1.5.1.2.5"), "6", "255"}}},
          {"rtp_sip.onu", "1.1.2", {{object("825.1.1.7.1.1.2"), "1", "1"}}}}},
        {"faxModem",
         {{"fax_modem.onu",
           "1.2.5",
           {{object("827.1.1.1.1.2.5"), "1", "0"}, {object("827.1.1.2.1.2.5"), "0", "1"}}},
          {"fax_modem_unknown.onu", "1.1.2", {{object("827.1.1.2.1.1.2"), "255", "255"}}}}},
    };
}

using Parameters = std::tuple<PageScripts, std::string /*SNMP version*/>;

// All over SNMPv2c, four over the other versions, too.
std::vector<Parameters> allRuns() {
    std::vector<Parameters> runs;
    for (const PageScripts& page : pageScripts()) {
        runs.emplace_back(page, "2c");
        for (const char* name : {"basicMac", "portVlan", "classification", "macFilter"}) {
            if (page.name == std::string(name)) {
                runs.emplace_back(page, "1");
                runs.emplace_back(page, "3");
            }
        }
    }
    return runs;
}

class PageScriptsTest : public testing::TestWithParam<Parameters> {};

TEST_P(PageScriptsTest, LeaveOnTheAgentWhatTheOperatorAskedFor) {
    const auto& [page, version] = GetParam();
    const ScriptSession session;
    for (const ScriptRun& run : page.runs) {
        SCOPED_TRACE(run.script);
        for (const Object& object : run.objects) {
            EXPECT_EQ(session.get(object.oid), object.before) << object.oid << " before";
        }
        const Finished onuctl = session.run(run.script, run.onu, version, run.options);
        EXPECT_EQ(onuctl.status, run.status) << onuctl.err << onuctl.out;
        for (const Object& object : run.objects) {
            EXPECT_EQ(session.get(object.oid), object.after) << object.oid << " after";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, PageScriptsTest, testing::ValuesIn(allRuns()),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param).name) + "_v" +
                                    std::get<1>(instance.param);
                         });

} // namespace
} // namespace onudesk::test
