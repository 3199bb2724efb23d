// SPDX-License-Identifier: MIT
//
// Message numbers and route keys that host and plug-in agree on.
#pragma once

#include <cstdint>

namespace onudesk {

// Plug-in to host thread: the payload is a DllClientCodePara, owned by the host once posted.
inline constexpr std::uint32_t WM_CODEPARA_REQUEST = 1140;
// Host to page window: the payload is a CodeParaReply, returned through ReleaseCodeParaFn.
inline constexpr std::uint32_t WM_CODEPARA_READ_REPLY = 1137;
inline constexpr std::uint32_t WM_CODEPARA_WRITE_REPLY = 1138;

inline constexpr std::uint8_t CP_SERVICE_ONU = 5;
inline constexpr std::uint8_t CP_KIND_WRITE = 1;
inline constexpr std::uint8_t CP_KIND_READ = 3;

// A request header carries the item type less this number, in 16 bits.
inline constexpr std::int32_t kItemTypeBase = 500;

// Key of a reply route: service, request kind (CP_KIND_*) and the unmasked item type.
[[nodiscard]] constexpr std::uint32_t routeKey(std::uint8_t kind, std::int32_t itemType) {
    return (std::uint32_t{CP_SERVICE_ONU} << 24) | (std::uint32_t{kind} << 16) |
           static_cast<std::uint32_t>(itemType);
}

static_assert(routeKey(CP_KIND_READ, 563) == 84083251U);
static_assert(routeKey(CP_KIND_READ, 790) == 84083478U);

// Values of CP_ERROR_STATUS. Positive ones are the SNMP error status of the response
// (RFC 3416); negative ones name what went wrong before there was a response.
namespace error_status {
inline constexpr std::int32_t noError = 0;
inline constexpr std::int32_t tooBig = 1;
inline constexpr std::int32_t noSuchName = 2;
inline constexpr std::int32_t timeout = -5;
inline constexpr std::int32_t badRequest = -101;    // the request record lacks what it needs
inline constexpr std::int32_t noPlan = -102;        // the catalogue says nothing about the item
inline constexpr std::int32_t noSession = -103;     // the SNMP session could not be opened
inline constexpr std::int32_t sendFailed = -104;    // the request could not be encoded or sent
inline constexpr std::int32_t walkRefused = -105;   // a table walk went backwards or never ended
inline constexpr std::int32_t badReply = -106;      // the response does not answer the request
inline constexpr std::int32_t unknownUser = -111;   // usmStatsUnknownUserNames (RFC 3414)
inline constexpr std::int32_t wrongDigest = -112;   // usmStatsWrongDigests
inline constexpr std::int32_t decryption = -113;    // usmStatsDecryptionErrors
inline constexpr std::int32_t notInTime = -114;     // usmStatsNotInTimeWindows
inline constexpr std::int32_t unknownEngine = -115; // usmStatsUnknownEngineIDs
inline constexpr std::int32_t securityLevel = -116; // usmStatsUnsupportedSecLevels
} // namespace error_status

} // namespace onudesk
