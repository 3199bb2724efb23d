// SPDX-License-Identifier: MIT
#include "bridge/session_context.h"

#include <algorithm>
#include <cstddef>

namespace onudesk {

namespace {

constexpr std::size_t kTextLimit = 100;
constexpr std::size_t kHostTextCLimit = 150;

std::string boundedText(const char* field, std::size_t limit) {
    return {field, std::find(field, field + limit, '\0')};
}

} // namespace

void copyParam(const HolderConfigParam& param, SessionContext& context) {
    context.agentAddress = boundedText(param.agentAddress, kTextLimit);
    context.hostTextA = boundedText(param.hostTextA, kTextLimit);
    context.snmpPort = param.snmpPort;
    context.snmpVersion = param.snmpVersion;
    context.readCommunity = boundedText(param.readCommunity, kTextLimit);
    context.writeCommunity = boundedText(param.writeCommunity, kTextLimit);
    context.writeCommunityCopy = context.writeCommunity;
    context.hostValueB = param.hostValueB;
    context.hostTextC = boundedText(param.hostTextC, kHostTextCLimit);
    context.menuFileName = boundedText(param.menuFileName, kTextLimit);
    context.oltNumber = param.oltNumber;
    context.ponNumber = param.ponNumber;
    context.onuNumber = param.onuNumber;
    context.subIndex = param.subIndex;
    context.subUnitItemType = param.subUnitItemType;
    context.hostTextE = boundedText(param.hostTextE, kTextLimit);
    context.rootCaption = boundedText(param.rootCaption, kTextLimit);
}

std::string formatOnuIndex(const SessionContext& context) {
    return std::to_string(context.oltNumber) + "." + std::to_string(context.ponNumber) + "." +
           std::to_string(context.onuNumber);
}

} // namespace onudesk
