// SPDX-License-Identifier: MIT
//
// What the window knows of the ONU it configures and of the way to reach it.
#pragma once

#include "onudesk/holder_config_param.h"

#include <cstdint>
#include <string>

namespace onudesk {

// The window's own copy of the parameter block, plus the SNMP settings that start from defaults.
// Texts hold at most 100 bytes (hostTextC 150).
struct SessionContext {
    std::int32_t currentItemType = 0;

    std::string agentAddress;
    std::string hostTextA;
    std::int32_t snmpPort = 161;
    std::int32_t snmpVersion = 0; // 0 SNMPv1, 1 SNMPv2c, 3 SNMPv3
    std::string readCommunity;
    std::string writeCommunity;
    std::int32_t hostValueB = 0;
    std::string hostTextC;
    std::int32_t oltNumber = -1;
    std::int32_t ponNumber = -1;
    std::int32_t onuNumber = -1;
    std::int32_t subIndex = -1;
    std::int32_t subUnitItemType = 0;
    std::string hostTextE;
    std::string rootCaption;

    std::int32_t timeout = 5;
    std::int32_t retries = 1;
    std::string v3EngineId;
    std::string v3ContextName;
    std::string v3UserName;
    std::int32_t securityModel = -1; // 0 any, 1 v1, 2 v2c, 3 USM; -1 not set
    std::int32_t securityLevel = -1; // 1 noAuthNoPriv, 2 authNoPriv, 3 authPriv; -1 not set
    std::int32_t authProtocol = -1;  // 1 none, 2 MD5, 3 SHA; -1 not set
    std::string authPassword;
    std::int32_t privProtocol = -1; // 1 none, 2 DES; -1 not set
    std::string privPassword;
    std::uint32_t localeId = 1033; // never the block's: that one only chooses the language module

    std::string writeCommunityCopy; // kept as the host gave it
    std::string menuFileName;
};

// Takes over the fields of the block and leaves the others as they are.
void copyParam(const HolderConfigParam& param, SessionContext& context);

// The three numbers joined by ".", absent ones as -1: "1.2.5", "1.-1.3".
[[nodiscard]] std::string formatOnuIndex(const SessionContext& context);

} // namespace onudesk
