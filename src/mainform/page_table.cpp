// SPDX-License-Identifier: MIT
#include "mainform/page_table.h"

#include "pages/basic/onu_basic.h"
#include "pages/basic/onu_dba_config.h"
#include "pages/basic/onu_reboot.h"
#include "pages/basic/plain_pages.h"
#include "pages/lt/onu_lt_pon_set.h"
#include "pages/lt/onu_lt_self_set.h"
#include "pages/lt/plain_pages.h"
#include "pages/mac/mac_switch_page.h"
#include "pages/mac/onu_mac_filter.h"
#include "pages/mac/plain_pages.h"
#include "pages/management/onu_cpu_car.h"
#include "pages/management/plain_pages.h"
#include "pages/multicast/onu_control_multi.h"
#include "pages/multicast/onu_multi_igmp.h"
#include "pages/multicast/plain_pages.h"
#include "pages/optical/onu_diagnosis.h"
#include "pages/optical/onu_threshold.h"
#include "pages/optical/plain_pages.h"
#include "pages/port/onu_capability2.h"
#include "pages/port/onu_com_session.h"
#include "pages/port/onu_encription.h"
#include "pages/port/onu_port_poe.h"
#include "pages/port/onu_port_status.h"
#include "pages/port/onu_port_status_p.h"
#include "pages/port/plain_pages.h"
#include "pages/qinq/onu_port_qinq.h"
#include "pages/qinq/onu_swich_qinq.h"
#include "pages/qinq/svlan_page.h"
#include "pages/qos/onu_cls.h"
#include "pages/qos/onu_langress.h"
#include "pages/qos/onu_queue_scheduler.h"
#include "pages/qos/onu_repeat_cos_queue.h"
#include "pages/qos/plain_pages.h"
#include "pages/vlan/onu_port_vlan.h"
#include "pages/vlan/onu_vlan_table.h"
#include "pages/vlan/plain_pages.h"
#include "pages/voip/onu_voip.h"
#include "pages/voip/onu_voip_fax_modem.h"
#include "pages/voip/onu_voip_h248.h"
#include "pages/voip/onu_voip_h248_rtp.h"
#include "pages/voip/plain_pages.h"

#include "platform/prompter.h"
#include "platform/route_mutex.h"

#include <algorithm>
#include <memory>

namespace onudesk {

namespace {

constexpr const char* kDefaultTopic = "onuVersion";

template <typename Page>
ConfigPage* make(Session& session, std::int32_t itemType, QWidget* parent) {
    return new Page(session, itemType, parent);
}

// Pages of facts alone, and of classes that several items share.
template <auto Facts>
ConfigPage* plain(Session& session, std::int32_t itemType, QWidget* parent) {
    return makePlainPage(Facts(), session, itemType, parent);
}
template <typename Page, auto Facts>
ConfigPage* make(Session& session, std::int32_t itemType, QWidget* parent) {
    return new Page(session, itemType, Facts(), parent);
}

// The window that was opened for one port shows that port only.
ConfigPage* makePortStatus(Session& session, std::int32_t itemType, QWidget* parent) {
    return session.SubIndex == -1 ? make<TOnuPortStatus>(session, itemType, parent)
                                  : make<TOnuPortStatusP>(session, itemType, parent);
}

constexpr PageEntry kPages[] = {
    {500, "TOnuIPConfig", "onuIp", plain<onuIPConfig>},
    {605, "TOnuVersionInfo", "onuVersion", plain<onuVersionInfo>},
    {606, "TOnuBasic", "onuBasic", make<TOnuBasic>},
    {607, "TOnuLangress", "onuLan", make<TOnuLangress>},
    {608, "TOnuDbaConfig", "onuDba", make<TOnuDbaConfig>},
    {611, "TOnuVlanTable", "onuVlanConfig", make<TOnuVlanTable>},
    {612, "TOnuPortVlan", "onuCtcPortVlan", make<TOnuPortVlan>},
    {613, "TOnuCls", "onuCls", make<TOnuCls>},
    {616, "TOnuFEC", "onuFec", plain<onuFEC>},
    {617, "TOnuPortStatus", "onuPortStatus", makePortStatus},
    {619, "TOnuMacFilter", "onuMacFilter", make<TOnuMacFilter>},
    {620, "TOnuMacLimit", "onuMacLimit", make<MacSwitchPage, onuMacLimit>},
    {621, "TOnuControlMulti", "onuControlMulti", make<TOnuControlMulti>},
    {622, "TOnuReboot", "onuReboot", make<TOnuReboot>},
    {624, "TOnuMulticastBase", "onuMultiBase", plain<onuMulticastBase>},
    {625, "TOnuMultiReport", "onuMultiReport", plain<onuMultiReport>},
    {626, "TOnuMultiIGMP", "onuMultiIgmp", make<TOnuMultiIGMP>},
    {643, "TOnuMacAge", "onuMacAge", make<MacSwitchPage, onuMacAge>},
    {644, "TOnuMacMaxNum", "onuMacMaxNum", plain<onuMacMaxNum>},
    {645, "TOnuSwichQinQ", "onuQinqConfig", make<TOnuSwichQinQ>},
    {646, "TOnuPortQinQ", "onuPortQinq", make<TOnuPortQinQ>},
    {647, "TOnuSVlanInsert", "onuSvlanInsert", make<SVlanPage, onuSVlanInsert>},
    {648, "TOnuSVlanPassThrough", "onuSvlanThrough", make<SVlanPage, onuSVlanPassThrough>},
    {649, "TOnuEncription", "onuEncription", make<TOnuEncription>},
    {650, "TOnuQueueScheduler", "onuQueueConfig", make<TOnuQueueScheduler>},
    {651, "TOnuCOSQueueScheduler", "onuCosQueue", plain<onuCOSQueueScheduler>},
    {652, "TOnuRepeatCOSQueue", "onuRepeatCosQueue", make<TOnuRepeatCOSQueue>},
    {664, "TOnuRate", "onuRate", plain<onuRate>},
    {665, "TOnuAlarm", "onuAlarm", plain<onuAlarm>},
    {666, "TOnuDiagnosis", "onuDiagnosis", make<TOnuDiagnosis>},
    {667, "TOnuThreshold", "onuThreshold", make<TOnuThreshold>},
    {675, "TOnuIPConfig", "onuIp", plain<onuIPConfig>},
    {676, "TOnuStaticVlan", "onuVlanConfig", nullptr},
    {677, "TOnuPortModeSetting", "onuPortMode", plain<onuPortModeSetting>},
    {678, "TOnuPortVlanSetting", "onuPortVlan", nullptr},
    {679, "TOnuIPVlan", "onuManagerVlan", plain<onuIPVlan>},
    {763, "TOnuComSession", "onuComSession", make<TOnuComSession>},
    {767, "TOnuCTCMode", "onuVlanMode", plain<onuCTCMode>},
    {772, "TOnuLoopback", "onuLoopback", plain<onuLoopback>},
    {811, "TOnuLTAttribute", nullptr, plain<onuLTAttribute>},
    {812, "TOnuLTIPConfig", nullptr, plain<onuLTIPConfig>},
    {813, "TOnuLTSelfSet", nullptr, make<TOnuLTSelfSet>},
    {815, "TOnuLTInfaStatus", nullptr, plain<onuLTInfaStatus>},
    {816, "TOnuLTGain", nullptr, plain<onuLTGain>},
    {817, "TOnuLTPonSet", nullptr, make<TOnuLTPonSet>},
    {822, "TOnuVoipIAD", nullptr, plain<onuVoipIAD>},
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

namespace {

// Answers what nobody is there to answer.
class NoOperator : public platform::Prompter {
public:
    NoOperator() : before_(platform::installPrompter(this)) {}
    ~NoOperator() override { platform::installPrompter(before_); }
    NoOperator(const NoOperator&) = delete;
    NoOperator& operator=(const NoOperator&) = delete;
    platform::PromptAnswer ask(const platform::Prompt& /*prompt*/) override {
        return platform::PromptAnswer::ok;
    }

private:
    platform::Prompter* before_;
};

// A session behind which there is no host: what is sent goes nowhere.
struct HostlessSession {
    explicit HostlessSession(std::int32_t subIndex) {
        routes.mutex = &mutex;
        session.routeTable = &routes;
        session.SubIndex = subIndex;
    }
    platform::RouteMutex mutex;
    ReplyRouteTable routes{};
    Session session;
};

} // namespace

std::vector<PageFacts> describePages() {
    const NoOperator nobody;
    HostlessSession whole(-1);
    HostlessSession onePort(1);
    std::vector<PageFacts> pages;
    for (const PageEntry& entry : kPages) {
        for (HostlessSession* host : {&whole, &onePort}) {
            const std::unique_ptr<ConfigPage> page(
                createPage(host->session, entry.itemType, nullptr));
            const bool isSame = !pages.empty() && page != nullptr && host == &onePort &&
                                bytesOf(page->objectName()) == pages.back().className;
            if (page != nullptr && !isSame) {
                pages.push_back(factsOf(*page));
                pages.back().topic = helpTopic(entry.itemType);
            }
        }
    }
    return pages;
}

std::string helpTopic(std::int32_t itemType) {
    const PageEntry* entry = findPage(itemType);
    const char* topic = entry == nullptr || entry->topic == nullptr ? kDefaultTopic : entry->topic;
    return std::string(topic) + ".htm";
}

} // namespace onudesk
