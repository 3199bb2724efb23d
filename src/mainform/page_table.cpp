// SPDX-License-Identifier: MIT
#include "mainform/page_table.h"

#include "pages/basic/onu_basic.h"

#include <algorithm>

namespace onudesk {

namespace {

constexpr const char* kDefaultTopic = "onuVersion";

template <typename Page>
ConfigPage* make(Session& session, std::int32_t itemType, QWidget* parent) {
    return new Page(session, itemType, parent);
}

constexpr PageEntry kPages[] = {
    {500, "TOnuIPConfig", "onuIp", nullptr},
    {605, "TOnuVersionInfo", "onuVersion", nullptr},
    {606, "TOnuBasic", "onuBasic", make<TOnuBasic>},
    {607, "TOnuLangress", "onuLan", nullptr},
    {608, "TOnuDbaConfig", "onuDba", nullptr},
    {611, "TOnuVlanTable", "onuVlanConfig", nullptr},
    {612, "TOnuPortVlan", "onuCtcPortVlan", nullptr},
    {613, "TOnuCls", "onuCls", nullptr},
    {616, "TOnuFEC", "onuFec", nullptr},
    {617, "TOnuPortStatus", "onuPortStatus", nullptr},
    {619, "TOnuMacFilter", "onuMacFilter", nullptr},
    {620, "TOnuMacLimit", "onuMacLimit", nullptr},
    {621, "TOnuControlMulti", "onuControlMulti", nullptr},
    {622, "TOnuReboot", "onuReboot", nullptr},
    {624, "TOnuMulticastBase", "onuMultiBase", nullptr},
    {625, "TOnuMultiReport", "onuMultiReport", nullptr},
    {626, "TOnuMultiIGMP", "onuMultiIgmp", nullptr},
    {643, "TOnuMacAge", "onuMacAge", nullptr},
    {644, "TOnuMacMaxNum", "onuMacMaxNum", nullptr},
    {645, "TOnuSwichQinQ", "onuQinqConfig", nullptr},
    {646, "TOnuPortQinQ", "onuPortQinq", nullptr},
    {647, "TOnuSVlanInsert", "onuSvlanInsert", nullptr},
    {648, "TOnuSVlanPassThrough", "onuSvlanThrough", nullptr},
    {649, "TOnuEncription", "onuEncription", nullptr},
    {650, "TOnuQueueScheduler", "onuQueueConfig", nullptr},
    {651, "TOnuCOSQueueScheduler", "onuCosQueue", nullptr},
    {652, "TOnuRepeatCOSQueue", "onuRepeatCosQueue", nullptr},
    {664, "TOnuRate", "onuRate", nullptr},
    {665, "TOnuAlarm", "onuAlarm", nullptr},
    {666, "TOnuDiagnosis", "onuDiagnosis", nullptr},
    {667, "TOnuThreshold", "onuThreshold", nullptr},
    {675, "TOnuIPConfig", "onuIp", nullptr},
    {676, "TOnuStaticVlan", "onuVlanConfig", nullptr},
    {677, "TOnuPortModeSetting", "onuPortMode", nullptr},
    {678, "TOnuPortVlanSetting", "onuPortVlan", nullptr},
    {679, "TOnuIPVlan", "onuManagerVlan", nullptr},
    {763, "TOnuComSession", "onuComSession", nullptr},
    {767, "TOnuCTCMode", "onuVlanMode", nullptr},
    {772, "TOnuLoopback", "onuLoopback", nullptr},
    {811, "TOnuLTAttribute", nullptr, nullptr},
    {812, "TOnuLTIPConfig", nullptr, nullptr},
    {813, "TOnuLTSelfSet", nullptr, nullptr},
    {815, "TOnuLTInfaStatus", nullptr, nullptr},
    {816, "TOnuLTGain", nullptr, nullptr},
    {817, "TOnuLTPonSet", nullptr, nullptr},
    {822, "TOnuVoipIAD", nullptr, nullptr},
    {823, "TOnuVoip", nullptr, nullptr},
    {824, "TOnuVoipH248", nullptr, nullptr},
    {825, "TOnuVoipH248Rtp", nullptr, nullptr},
    {826, "TOnuVoipSIP", nullptr, nullptr},
    {827, "TOnuVoipFaxModem", nullptr, nullptr},
    {828, "TOnuVoipPort", nullptr, nullptr},
    {886, "TOnuCapability2", "onuCapability2", nullptr},
    {887, "TOnuPortIsolation", "onuPortIsolation", nullptr},
    {888, "TOnuPortPoE", "onuPortPoe", nullptr},
    {915, "TOnuCpuCar", nullptr, nullptr},
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
    return entry == nullptr || entry->create == nullptr ? nullptr
                                                        : entry->create(session, itemType, parent);
}

std::string helpTopic(std::int32_t itemType) {
    const PageEntry* entry = findPage(itemType);
    const char* topic = entry == nullptr || entry->topic == nullptr ? kDefaultTopic : entry->topic;
    return std::string(topic) + ".htm";
}

} // namespace onudesk
