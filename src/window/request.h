// SPDX-License-Identifier: MIT
//
// Building and posting requests.
//
//     CodeParaPtr write = createWriteRequest(session, itemType);
//     addWriteBinding(*write, name, *object, session.OnuIndexText);
//     registerWriteRoute(session, itemType, window);
//     postWrite(session, std::move(write));
#pragma once

#include "bridge/session.h"
#include "window/object_catalogue.h"

#include <cstdint>
#include <string>

namespace onudesk {

// Header and access settings, the same for every request. `kind` is CP_KIND_READ or CP_KIND_WRITE.
void fillSessionEntries(DllClientCodePara& para, const Session& session, std::int32_t itemType,
                        std::uint8_t kind);
// Session entries and the instance suffix. Consumes a pending port segment, unless a sub-index
// is present or there is no OLT number.
void fillReadRequest(DllClientCodePara& para, Session& session, std::int32_t itemType);

// Null when memory is short; nothing is sent then.
[[nodiscard]] CodeParaPtr createWriteRequest(const Session& session, std::int32_t itemType);

// One binding: position k of the name, OID, value and type lists describes binding k. With length 0
// the value's text (up to a zero byte) is sent, otherwise its first `length` bytes, followed by
// zero bytes where it has fewer. An empty suffix adds nothing to the OID, and an object without OID
// gives an empty one.
void addWriteBinding(DllClientCodePara& para, const std::string& value, const CONFIG_OID_T& object,
                     const std::string& suffix, std::size_t length = 0);

// Creates, fills and posts a read request. False when nothing was sent.
bool sendReadRequest(Session& session, std::int32_t itemType);
// Posts a write, unless it has no bindings. False when nothing was sent; the request is gone then.
bool postWrite(const Session& session, CodeParaPtr request);

// The next read request is for this port of the ONU.
void setPortSegment(Session& session, const std::string& text);

// The address as a number in host byte order ("192.168.1.2" is 0xC0A80102), read as inet_addr(3)
// does; 0xFFFFFFFF when it cannot be read.
[[nodiscard]] std::uint32_t addressNumber(const std::string& dottedText);

} // namespace onudesk
