// SPDX-License-Identifier: MIT
#pragma once

#include "host/reply_record.h"

#include <string>

namespace onudesk::host {

// One line of JSON (RFC 8259), without a line break at its end:
//   {"dir":"request","kind":"read"|"write","item":N,"suffix":"…",
//    "bindings":[{"name":"…","oid":"…","type":N,"text":"…","hex":"…"}]}
// `text` is empty when the value is no text; `hex` is always there.
[[nodiscard]] std::string traceLine(const RequestRecord& request);

//   {"dir":"reply","kind":…,"item":N,"result":"…","status":N,
//    "error":{"status":N,"index":N,"text":"…"},"oids":["…"],"values":["…"]}
[[nodiscard]] std::string traceLine(const ReplyRecord& reply);

} // namespace onudesk::host
