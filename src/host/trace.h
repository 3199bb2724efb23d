// SPDX-License-Identifier: MIT
#pragma once

#include "host/reply_record.h"

#include <string>

#include <QJsonObject>

namespace onudesk::host {

// What the trace says of a request:
//   {"dir":"request","kind":"read"|"write","item":N,"suffix":"…",
//    "bindings":[{"name":"…","oid":"…","type":N,"text":"…","hex":"…"}]}
// `text` is empty when the value is no text; `hex` is always there.
[[nodiscard]] QJsonObject traceObject(const RequestRecord& request);

// And of a reply:
//   {"dir":"reply","kind":…,"item":N,"result":"…","status":N,
//    "error":{"status":N,"index":N,"text":"…"},"oids":["…"],"values":["…"]}
[[nodiscard]] QJsonObject traceObject(const ReplyRecord& reply);

// One line of JSON (RFC 8259), without a line break at its end.
[[nodiscard]] QString traceLine(const QJsonObject& object);

} // namespace onudesk::host
