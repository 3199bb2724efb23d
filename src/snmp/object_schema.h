// SPDX-License-Identifier: MIT
//
// The catalogue file with everything that host and simulator know of an object. Besides `name`,
// `oidstr` and `type`, which the window reads, the file says:
//
//   group   read    "scalar": one instance of every object per ONU, read with GET;
//                   "table": rows below the ONU, read by walking; missing: written only
//           per     "onu": read when the instance is an ONU's (three numbers or fewer); "port":
//                   read when there are more, as of a port; missing: always read, of a
//                   table only the row that those numbers name
//           port    number of a port, with per="port": read for this port when the instance is an
//                   ONU's three numbers
//           staged  name of the module's row-status object that what is written to this group
//                   waits for
//           entries "LOW..HIGH": the rows of a staged group are entries below those of the row
//                   status, numbered so
//           slots   "yes": the rows of a staged group are slots of the row above them, filled and
//                   emptied, but always there
//           model   name of the simulator's model of the group: writes do what it says
//   object  access  "read-only" (when missing), "read-write", "read-create" or "write-only"
//           range   "LOW..HIGH", inclusive, for numbers
//           size    "LOW..HIGH" or "N" bytes, for octet strings
//           numbers "LOW..HIGH": an octet string is a list of so many numbers, joined by ","; each
//                   lies in the range
//           format  "hex": the value always travels as hexadecimal digits
//           secret  "yes": the value stays out of traces
//           row     name of the row-status object that governs this object's rows; a row-status
//                   object (RFC 2579) names itself
//           unique  "yes": a row cannot become active with a value another active row holds; in
//                   a group with entries: no two entries of a row hold the same value; in a group
//                   with slots: what tells the filled slots of a row apart; "together": no two
//                   filled slots of a row hold the same in all such objects
//           index   "yes": holds the last number of its instance
//           member  name of the group's object that says whether the row is a member on the side to
//                   which this object, its tag there, belongs
//           spread  "yes": 1 fills the slot of that number in all rows of the ONU
#pragma once

#include "base/result.h"
#include "env/xml_file.h"
#include "snmp/config_oid.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace onudesk {

enum class ReadMode { none, scalar, table };
enum class ReadScope { always, onu, port };
enum class Uniqueness { none, alone, together };
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
    std::optional<NumberRange> numbers;
    bool hex = false;
    bool secret = false;
    Uniqueness unique = Uniqueness::none;
    bool index = false;
    bool spread = false;
    std::string row;
    std::string member;
    [[nodiscard]] bool isRowStatus() const { return !row.empty() && row == object.name; }
};

struct GroupSchema {
    std::string name;
    ReadMode read = ReadMode::none;
    ReadScope per = ReadScope::always;
    std::optional<std::uint32_t> port;
    std::string staged;
    std::optional<NumberRange> entries;
    bool slots = false;
    std::string model;
    std::vector<ObjectSchema> objects; // in the order of the file, which is the order of values
};

// Groups of one item type, in the order of the file, which is the order of replies.
using ModuleSchema = std::vector<GroupSchema>;
using CatalogueSchema = std::map<std::int32_t, ModuleSchema>;

// Fails, naming module, group and object, on attributes with values not listed above.
[[nodiscard]] Result<CatalogueSchema> loadSchema(const std::filesystem::path& path);
[[nodiscard]] Result<CatalogueSchema> readSchema(const TiXmlElement& root);

// The elements of that name below an element, or all for null, in their order; of those whose
// `name` attributes are the same the first. So modules, groups and objects of the catalogue are
// told apart.
[[nodiscard]] std::vector<const TiXmlElement*> namedElements(const TiXmlElement& parent,
                                                             const char* element = nullptr);
// The part of an object's element that every reader of the catalogue takes; a type that is no
// number counts as not stated.
[[nodiscard]] CONFIG_OID_T namedObject(const TiXmlElement& element);

// The OIDs, without instance, of the objects whose values are secrets.
[[nodiscard]] std::vector<std::string> secretObjects(const CatalogueSchema& catalogue);

} // namespace onudesk
