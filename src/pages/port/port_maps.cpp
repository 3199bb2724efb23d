// SPDX-License-Identifier: MIT
#include "pages/port/port_maps.h"

#include "env/language_module.h"
#include "env/message_ids.h"

#include <algorithm>

namespace onudesk {

namespace {

constexpr int kUp = 11012;
constexpr int kDown = 11013;
constexpr std::size_t kDigits = 8;

struct Capability {
    std::string_view code;
    const char* text;
};

// Numbers of the auto-negotiation technologies that ports advertise (RFC 4836).
constexpr Capability kCapabilities[] = {
    {"0000000E", "10BASE-T"},
    {"0000008E", "Full duplex 10BASE-T"},
    {"00000017", "100BASE-T4"},
    {"00000019", "100BASE-TX"},
    {"000000FC", "Full duplex 100BASE-TX"},
    {"00000138", "Full duplex PAUSE"},
    {"00000139", "Full duplex Asymmetric PAUSE"},
    {"0000013A", "Full duplex Symmetric PAUSE"},
    {"0000013B", "Full duplex Asymmetric and Symmetric PAUSE"},
    {"00000020", "100BASE-T2"},
    {"00000142", "Full duplex 100BASE-T2"},
    {"00000024", "1000BASE-X"},
    {"0000016A", "Full duplex 1000BASE-X"},
    {"00000028", "1000BASE-T"},
    {"00000192", "Full duplex 1000BASE-T"},
    {"00000025", "Remote fault bit 1 (RF1)"},
    {"00000174", "Remote fault bit 2 (RF1)"},
    {"00001F5D", "802.9 ISLAN-16T"},
};

} // namespace

PortMaps::PortMaps()
    : states({{messageText(kDown), "0"}, {messageText(kUp), "1"}}),
      flowControl({{messageText(message::off), "0"}, {messageText(message::on), "1"}}),
      switches({{messageText(message::off), "1"}, {messageText(message::on), "2"}}) {}

Field portSetting(const char* control, const char* radio, int labelId, std::size_t position,
                  const char* object, const ValueMap& map) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .object = {object},
            .codes = map.keepingUnknown(),
            .written = Written::always,
            .enabledBy = radioButton(radio)};
}

std::vector<std::string> capabilities(std::string_view value) {
    std::vector<std::string> texts;
    for (; value.size() >= kDigits; value.remove_prefix(kDigits)) {
        const std::string_view code = value.substr(0, kDigits);
        const auto* const known = std::ranges::find(kCapabilities, code, &Capability::code);
        texts.emplace_back(known == std::end(kCapabilities) ? code : std::string_view(known->text));
    }
    return texts;
}

} // namespace onudesk
