// SPDX-License-Identifier: MIT
//
// The catalogue file with everything that host and simulator know of an object. Besides `name`,
// `oidstr` and `type`, which the window reads, the file says:
//
//   group   read    "scalar": one instance of every object per ONU, read with GET;
//                   "table": rows below the ONU, read by walking; missing: written only
//   object  access  "read-only" (when missing), "read-write", "read-create" or "write-only"
//           range   "LOW..HIGH", inclusive, for numbers
//           size    "LOW..HIGH" or "N" bytes, for octet strings
//           format  "hex": the value always travels as hexadecimal digits
//           row     name of the row-status object that governs this object's rows; a row-status
//                   object (RFC 2579) names itself
//           unique  "yes": a row cannot become active with a value another active row holds
#pragma once

#include "bridge/result.h"
#include "snmp/object_catalogue.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace onudesk {

enum class ReadMode { none, scalar, table };
enum class ObjectAccess { readOnly, readWrite, readCreate, writeOnly };

struct NumberRange {
    std::int64_t low = 0;
    std::int64_t high = 0;
    [[nodiscard]] bool contains(std::int64_t value) const { return low <= value && value <= high; }
};

struct ObjectSchema {
    CONFIG_OID_T object;
    ObjectAccess access = ObjectAccess::readOnly;
    std::optional<NumberRange> range;
    std::optional<NumberRange> size;
    bool hex = false;
    bool unique = false;
    std::string row;
    [[nodiscard]] bool isRowStatus() const { return !row.empty() && row == object.name; }
};

struct GroupSchema {
    std::string name;
    ReadMode read = ReadMode::none;
    std::vector<ObjectSchema> objects; // in the order of the file, which is the order of values
};

// Groups of one item type, in the order of the file, which is the order of replies.
using ModuleSchema = std::vector<GroupSchema>;
using CatalogueSchema = std::map<std::int32_t, ModuleSchema>;

// Fails, naming module, group and object, on attributes with values not listed above.
[[nodiscard]] Result<CatalogueSchema> loadSchema(const std::filesystem::path& path);
[[nodiscard]] Result<CatalogueSchema> readSchema(const TiXmlElement& root);

} // namespace onudesk
