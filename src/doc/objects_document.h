// SPDX-License-Identifier: MIT
//
// docs/objects.md: what a person knows of the objects, joined with what the catalogue says of them.
#pragma once

#include "base/result.h"
#include "snmp/object_schema.h"

#include <string>

namespace onudesk {

// `source` is Markdown. Below a heading "## Modules 500 and 675: …" each heading "### group", or
// "### 675 group" where the modules differ, becomes a line with the group's OID and attributes, and
// the list under it, "- object: meaning" or "- object, object: meaning", a table of the objects.
// Everything else stays as it is. Fails, naming each, on a module, group or object that only one of
// the two knows, and on modules under one heading whose groups differ.
[[nodiscard]] Result<std::string> objectsDocument(const std::string& source,
                                                  const CatalogueSchema& catalogue);

} // namespace onudesk
