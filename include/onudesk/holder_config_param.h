// SPDX-License-Identifier: MIT
//
// The parameter block with which a host opens the configuration window.
#pragma once

#include <cstddef>
#include <cstdint>

namespace onudesk {

// The block belongs to the host and need only live until ShowHolderConfigForm returns.
// Texts are UTF-8 bytes; at most 100 bytes (150 for hostTextC) are taken, terminated or not.
// Index fields are -1 when the level is absent. Bytes in the gaps are never read.
#pragma pack(push, 1)
struct HolderConfigParam {
    char agentAddress[101]; // dotted IPv4 text
    char hostTextA[101];
    std::uint8_t gap202[2];
    std::int32_t snmpPort;    // UDP port
    std::int32_t snmpVersion; // 0 SNMPv1, 1 SNMPv2c, 3 SNMPv3
    char readCommunity[101];
    char writeCommunity[101];
    std::uint8_t gap414[2];
    std::int32_t hostValueB;
    char hostTextC[151];
    char menuFileName[101];
    std::uint8_t gap672[4];
    std::int32_t oltNumber;
    std::int32_t ponNumber;
    std::int32_t onuNumber;
    std::int32_t subIndex;        // fourth index level below the ONU
    std::int32_t subUnitItemType; // item shown alone when subIndex is present
    char hostTextE[101];
    std::uint8_t gap797[101];
    char rootCaption[101]; // the last byte only ever holds a terminator
    std::uint8_t gap999[537];
    std::uint32_t localeId; // Windows locale identifier, such as 1033 or 2052
};
#pragma pack(pop)

static_assert(offsetof(HolderConfigParam, agentAddress) == 0);
static_assert(offsetof(HolderConfigParam, hostTextA) == 101);
static_assert(offsetof(HolderConfigParam, snmpPort) == 204);
static_assert(offsetof(HolderConfigParam, snmpVersion) == 208);
static_assert(offsetof(HolderConfigParam, readCommunity) == 212);
static_assert(offsetof(HolderConfigParam, writeCommunity) == 313);
static_assert(offsetof(HolderConfigParam, hostValueB) == 416);
static_assert(offsetof(HolderConfigParam, hostTextC) == 420);
static_assert(offsetof(HolderConfigParam, menuFileName) == 571);
static_assert(offsetof(HolderConfigParam, oltNumber) == 676);
static_assert(offsetof(HolderConfigParam, ponNumber) == 680);
static_assert(offsetof(HolderConfigParam, onuNumber) == 684);
static_assert(offsetof(HolderConfigParam, subIndex) == 688);
static_assert(offsetof(HolderConfigParam, subUnitItemType) == 692);
static_assert(offsetof(HolderConfigParam, hostTextE) == 696);
static_assert(offsetof(HolderConfigParam, rootCaption) == 898);
static_assert(offsetof(HolderConfigParam, localeId) == 1536);
static_assert(sizeof(HolderConfigParam) == 1540);

} // namespace onudesk
