// SPDX-License-Identifier: MIT
#include "mainform/page_table.h"

#include "pages/basic/onu_basic.h"
#include "pages/basic/onu_dba_config.h"
#include "pages/basic/onu_reboot.h"
#include "pages/basic/onu_version_info.h"
#include "pages/lt/onu_lt_attribute.h"
#include "pages/lt/onu_lt_gain.h"
#include "pages/lt/onu_lt_infa_status.h"
#include "pages/lt/onu_lt_ip_config.h"
#include "pages/lt/onu_lt_pon_set.h"
#include "pages/lt/onu_lt_self_set.h"
#include "pages/mac/onu_mac_age.h"
#include "pages/mac/onu_mac_filter.h"
#include "pages/mac/onu_mac_limit.h"
#include "pages/mac/onu_mac_max_num.h"
#include "pages/management/onu_cpu_car.h"
#include "pages/management/onu_ip_config.h"
#include "pages/multicast/onu_control_multi.h"
#include "pages/multicast/onu_multi_igmp.h"
#include "pages/multicast/onu_multi_report.h"
#include "pages/multicast/onu_multicast_base.h"
#include "pages/optical/onu_alarm.h"
#include "pages/optical/onu_diagnosis.h"
#include "pages/optical/onu_threshold.h"
#include "pages/port/onu_capability2.h"
#include "pages/port/onu_com_session.h"
#include "pages/port/onu_encription.h"
#include "pages/port/onu_fec.h"
#include "pages/port/onu_loopback.h"
#include "pages/port/onu_port_poe.h"
#include "pages/port/onu_port_status.h"
#include "pages/port/onu_port_status_p.h"
#include "pages/qinq/onu_port_qinq.h"
#include "pages/qinq/onu_svlan_insert.h"
#include "pages/qinq/onu_svlan_pass_through.h"
#include "pages/qinq/onu_swich_qinq.h"
#include "pages/qos/onu_cls.h"
#include "pages/qos/onu_cos_queue_scheduler.h"
#include "pages/qos/onu_langress.h"
#include "pages/qos/onu_queue_scheduler.h"
#include "pages/qos/onu_rate.h"
#include "pages/qos/onu_repeat_cos_queue.h"
#include "pages/vlan/onu_ctc_mode.h"
#include "pages/vlan/onu_ip_vlan.h"
#include "pages/vlan/onu_port_mode_setting.h"
#include "pages/vlan/onu_port_vlan.h"
#include "pages/vlan/onu_vlan_table.h"
#include "pages/voip/onu_voip.h"
#include "pages/voip/onu_voip_fax_modem.h"
#include "pages/voip/onu_voip_h248.h"
#include "pages/voip/onu_voip_h248_rtp.h"
#include "pages/voip/onu_voip_iad.h"

#include <algorithm>

namespace onudesk {

namespace {

constexpr const char* kDefaultTopic = "onuVersion";

template <typename Page>
ConfigPage* make(Session& session, std::int32_t itemType, QWidget* parent) {
    return new Page(session, itemType, parent);
}

// The window that was opened for one port shows that port only.
ConfigPage* makePortStatus(Session& session, std::int32_t itemType, QWidget* parent) {
    return session.SubIndex == -1 ? make<TOnuPortStatus>(session, itemType, parent)
                                  : make<TOnuPortStatusP>(session, itemType, parent);
}

constexpr PageEntry kPages[] = {
    {500, "TOnuIPConfig", "onuIp", make<TOnuIPConfig>},
    {605, "TOnuVersionInfo", "onuVersion", make<TOnuVersionInfo>},
    {606, "TOnuBasic", "onuBasic", make<TOnuBasic>},
    {607, "TOnuLangress", "onuLan", make<TOnuLangress>},
    {608, "TOnuDbaConfig", "onuDba", make<TOnuDbaConfig>},
    {611, "TOnuVlanTable", "onuVlanConfig", make<TOnuVlanTable>},
    {612, "TOnuPortVlan", "onuCtcPortVlan", make<TOnuPortVlan>},
    {613, "TOnuCls", "onuCls", make<TOnuCls>},
    {616, "TOnuFEC", "onuFec", make<TOnuFEC>},
    {617, "TOnuPortStatus", "onuPortStatus", makePortStatus},
    {619, "TOnuMacFilter", "onuMacFilter", make<TOnuMacFilter>},
    {620, "TOnuMacLimit", "onuMacLimit", make<TOnuMacLimit>},
    {621, "TOnuControlMulti", "onuControlMulti", make<TOnuControlMulti>},
    {622, "TOnuReboot", "onuReboot", make<TOnuReboot>},
    {624, "TOnuMulticastBase", "onuMultiBase", make<TOnuMulticastBase>},
    {625, "TOnuMultiReport", "onuMultiReport", make<TOnuMultiReport>},
    {626, "TOnuMultiIGMP", "onuMultiIgmp", make<TOnuMultiIGMP>},
    {643, "TOnuMacAge", "onuMacAge", make<TOnuMacAge>},
    {644, "TOnuMacMaxNum", "onuMacMaxNum", make<TOnuMacMaxNum>},
    {645, "TOnuSwichQinQ", "onuQinqConfig", make<TOnuSwichQinQ>},
    {646, "TOnuPortQinQ", "onuPortQinq", make<TOnuPortQinQ>},
    {647, "TOnuSVlanInsert", "onuSvlanInsert", make<TOnuSVlanInsert>},
    {648, "TOnuSVlanPassThrough", "onuSvlanThrough", make<TOnuSVlanPassThrough>},
    {649, "TOnuEncription", "onuEncription", make<TOnuEncription>},
    {650, "TOnuQueueScheduler", "onuQueueConfig", make<TOnuQueueScheduler>},
    {651, "TOnuCOSQueueScheduler", "onuCosQueue", make<TOnuCOSQueueScheduler>},
    {652, "TOnuRepeatCOSQueue", "onuRepeatCosQueue", make<TOnuRepeatCOSQueue>},
    {664, "TOnuRate", "onuRate", make<TOnuRate>},
    {665, "TOnuAlarm", "onuAlarm", make<TOnuAlarm>},
    {666, "TOnuDiagnosis", "onuDiagnosis", make<TOnuDiagnosis>},
    {667, "TOnuThreshold", "onuThreshold", make<TOnuThreshold>},
    {675, "TOnuIPConfig", "onuIp", make<TOnuIPConfig>},
    {676, "TOnuStaticVlan", "onuVlanConfig", nullptr},
    {677, "TOnuPortModeSetting", "onuPortMode", make<TOnuPortModeSetting>},
    {678, "TOnuPortVlanSetting", "onuPortVlan", nullptr},
    {679, "TOnuIPVlan", "onuManagerVlan", make<TOnuIPVlan>},
    {763, "TOnuComSession", "onuComSession", make<TOnuComSession>},
    {767, "TOnuCTCMode", "onuVlanMode", make<TOnuCTCMode>},
    {772, "TOnuLoopback", "onuLoopback", make<TOnuLoopback>},
    {811, "TOnuLTAttribute", nullptr, make<TOnuLTAttribute>},
    {812, "TOnuLTIPConfig", nullptr, make<TOnuLTIPConfig>},
    {813, "TOnuLTSelfSet", nullptr, make<TOnuLTSelfSet>},
    {815, "TOnuLTInfaStatus", nullptr, make<TOnuLTInfaStatus>},
    {816, "TOnuLTGain", nullptr, make<TOnuLTGain>},
    {817, "TOnuLTPonSet", nullptr, make<TOnuLTPonSet>},
    {822, "TOnuVoipIAD", nullptr, make<TOnuVoipIAD>},
    {823, "TOnuVoip", nullptr, make<TOnuVoip>},
    {824, "TOnuVoipH248", nullptr, make<TOnuVoipH248>},
    {825, "TOnuVoipH248Rtp", nullptr, make<TOnuVoipH248Rtp>},
    {826, "TOnuVoipSIP", nullptr, nullptr},
    {827, "TOnuVoipFaxModem", nullptr, make<TOnuVoipFaxModem>},
    {828, "TOnuVoipPort", nullptr, nullptr},
    {886, "TOnuCapability2", "onuCapability2", make<TOnuCapability2>},
    {887, "TOnuPortIsolation", "onuPortIsolation", nullptr},
    {888, "TOnuPortPoE", "onuPortPoe", make<TOnuPortPoE>},
    {915, "TOnuCpuCar", nullptr, make<TOnuCpuCar>},
};

const PageEntry* findPage(std::int32_t itemType) {
    const auto* const found = std::ranges::find(kPages, itemType, &PageEntry::itemType);
    return found == std::end(kPages) ? nullptr : found;
}

} // namespace

std::span<const PageEntry> pageTable() {
    return kPages;
}

ConfigPage* createPage(Session& session, std::int32_t itemType, QWidget* parent) {
    const PageEntry* entry = findPage(itemType);
    if (entry == nullptr || entry->create == nullptr) {
        return nullptr;
    }
    ConfigPage* page = entry->create(session, itemType, parent);
    if (page->objectName().isEmpty()) {
        page->setObjectName(QString::fromLatin1(entry->className));
    }
    return page;
}

std::string helpTopic(std::int32_t itemType) {
    const PageEntry* entry = findPage(itemType);
    const char* topic = entry == nullptr || entry->topic == nullptr ? kDefaultTopic : entry->topic;
    return std::string(topic) + ".htm";
}

} // namespace onudesk
