// SPDX-License-Identifier: MIT
#include "doc/objects_document.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace onudesk {

namespace {

std::string code(const std::string& name) {
    return "`" + name + "`";
}

std::string shown(const NumberRange& range) {
    const std::string low = std::to_string(range.low);
    return range.low == range.high ? low : low + ".." + std::to_string(range.high);
}

// Type with its bounds, as in "OCTET STRING, up to 32 bytes" or "INTEGER, 0..1".
std::string typeOf(const ObjectSchema& object) {
    static const std::map<std::int32_t, const char*> names{
        {2, "INTEGER"},    {4, "OCTET STRING"}, {6, "OBJECT IDENTIFIER"},
        {64, "IpAddress"}, {65, "Counter32"},   {66, "Gauge32"},
        {67, "TimeTicks"}, {68, "Opaque"},      {70, "Counter64"}};
    const auto name = names.find(object.object.type);
    std::string text = name == names.end() ? "?" : name->second;
    if (object.size) {
        text += object.size->low == 0 ? ", up to " + std::to_string(object.size->high)
                                      : ", " + shown(*object.size);
        text += object.hex ? " bytes, hexadecimal" : " bytes";
    }
    if (object.numbers) {
        text += ", " + shown(*object.numbers) + " numbers";
    }
    return object.range ? text + ", " + shown(*object.range) : text;
}

std::string accessOf(const ObjectSchema& object) {
    static const std::map<ObjectAccess, const char*> names{
        {ObjectAccess::readOnly, "read-only"},
        {ObjectAccess::readWrite, "read-write"},
        {ObjectAccess::readCreate, "read-create"},
        {ObjectAccess::writeOnly, "write-only"}};
    std::string text = names.at(object.access);
    const auto add = [&](bool holds, const std::string& what) { text += holds ? ", " + what : ""; };
    add(object.unique == Uniqueness::alone, "unique");
    add(object.unique == Uniqueness::together, "unique together");
    add(object.index, "index");
    add(object.spread, "spreads");
    add(object.secret, "secret");
    add(object.isRowStatus(), "row status");
    add(!object.row.empty() && !object.isRowStatus(), "in the row of " + code(object.row));
    add(!object.member.empty(), "tag of " + code(object.member));
    return text;
}

// What the catalogue says of the group, behind its name and OID.
std::string attributesOf(const GroupSchema& group) {
    std::string text = group.read == ReadMode::scalar  ? ", one instance per ONU"
                       : group.read == ReadMode::table ? ", rows of a table"
                                                       : ", only written";
    const auto add = [&](bool holds, const std::string& what) { text += holds ? ", " + what : ""; };
    add(group.per == ReadScope::onu, "read per ONU");
    add(group.per == ReadScope::port, "read per port");
    add(group.port.has_value(),
        "port " + std::to_string(group.port.value_or(0)) + " when none is named");
    add(!group.staged.empty(), "staged by " + code(group.staged));
    add(group.entries.has_value(), "entries " + shown(group.entries.value_or(NumberRange{})));
    add(group.slots, "with slots");
    add(!group.model.empty(), "model " + code(group.model));
    return text;
}

// A list under a heading, by object.
using Meanings = std::map<std::string, std::string>;

class ObjectsDocument {
public:
    explicit ObjectsDocument(const CatalogueSchema& catalogue) : catalogue_(catalogue) {}

    Result<std::string> write(const std::string& source) {
        for (const Line& line : lines(source)) {
            take(std::string(line.text));
        }
        endGroup();
        endSection();
        for (const auto& [item, module] : catalogue_) {
            if (!described_.contains(item)) {
                problem("module " + std::to_string(item) + " is not described");
            }
        }
        return problems_.empty() ? Result<std::string>(out_) : Error{problems_};
    }

private:
    void take(const std::string& line) {
        if (line.starts_with("## ")) {
            endGroup();
            endSection();
            beginSection(line);
        } else if (line.starts_with("### ") && !items_.empty()) {
            endGroup();
            beginGroup(line.substr(4));
        } else if (!groups_.empty() && line.starts_with("- ")) {
            beginMeaning(line.substr(2));
        } else if (!meant_.empty() && line.starts_with("  ")) {
            for (const std::string& name : meant_) {
                meanings_[name] += line.substr(1);
            }
        } else {
            meant_.clear();
            if (line.empty()) {
                endTable();
            }
            out_ += line + "\n";
        }
    }

    void beginSection(const std::string& line) {
        out_ += line + "\n";
        if (!line.starts_with("## Module")) {
            return;
        }
        std::istringstream words(line.substr(0, line.find(':')));
        for (std::string word; words >> word;) {
            if (std::isdigit(static_cast<unsigned char>(word.front())) == 0) {
                continue;
            }
            const std::int32_t item = leadingInteger(word);
            if (!catalogue_.contains(item)) {
                problem("there is no module " + word);
            } else if (described_.insert(item).second) {
                items_.push_back(item);
            } else {
                problem("module " + word + " is described twice");
            }
        }
    }

    // Every group of the modules must have had its heading.
    void endSection() {
        for (const std::int32_t item : items_) {
            for (const GroupSchema& group : catalogue_.at(item)) {
                if (!describedGroups_.contains({item, group.name})) {
                    problem(std::to_string(item) + " " + group.name + " is not described");
                }
            }
        }
        items_.clear();
    }

    void beginGroup(const std::string& heading) {
        std::string name = heading;
        std::vector<std::int32_t> items = items_;
        const std::size_t blank = heading.find(' ');
        for (const std::int32_t item : items_) {
            if (heading.substr(0, blank) == std::to_string(item)) {
                items = {item};
                name = heading.substr(blank + 1);
            }
        }
        std::string oids;
        for (const std::int32_t item : items) {
            const auto& module = catalogue_.at(item);
            const auto group = std::ranges::find(module, name, &GroupSchema::name);
            if (group == module.end()) {
                problem("module " + std::to_string(item) + " has no group " + name);
                return;
            }
            describedGroups_.emplace(item, name);
            groups_.emplace_back(item, &*group);
            if (const std::string oid = oidOf(item, *group); !oid.empty()) {
                oids += (oids.empty() ? "" : " and ") + oid;
            }
        }
        const GroupSchema& first = *groups_.front().second;
        for (const auto& [item, group] : groups_) {
            if (!alike(*group, first)) {
                problem("groups " + name + " of modules under one heading differ");
            }
        }
        out_ += "Group " + code(name) + (oids.empty() ? "" : " (" + oids + ")") +
                attributesOf(first) + ".\n";
    }

    static bool alike(const GroupSchema& left, const GroupSchema& right) {
        return attributesOf(left) == attributesOf(right) &&
               std::ranges::equal(left.objects, right.objects,
                                  [](const ObjectSchema& one, const ObjectSchema& other) {
                                      return one.object.name == other.object.name &&
                                             typeOf(one) == typeOf(other) &&
                                             accessOf(one) == accessOf(other);
                                  });
    }

    void beginMeaning(const std::string& line) {
        const std::size_t colon = line.find(": ");
        if (colon == std::string::npos) {
            problem("no meaning: " + line);
            return;
        }
        meant_.clear();
        std::istringstream names(line.substr(0, colon));
        for (std::string name; names >> name;) {
            std::erase(name, ',');
            if (!meanings_.emplace(name, line.substr(colon + 2)).second) {
                problem(name + " is explained twice");
            }
            meant_.push_back(name);
        }
    }

    // The item whose object this is, when it is not the module's own.
    [[nodiscard]] std::optional<std::int32_t> ownerOf(std::int32_t item,
                                                      const std::string& oid) const {
        for (const auto& [other, module] : catalogue_) {
            if (other != item && oid.find("." + std::to_string(other) + ".") != std::string::npos) {
                return other;
            }
        }
        return std::nullopt;
    }

    // The OID that all columns of the group have in common; empty when none is its own.
    [[nodiscard]] std::string oidOf(std::int32_t item, const GroupSchema& group) const {
        for (const ObjectSchema& object : group.objects) {
            const std::string& oid = object.object.oidstr;
            if (!ownerOf(item, oid)) {
                return oid.substr(0, oid.rfind('.'));
            }
        }
        return {};
    }

    // The table stands where its list stood.
    void endTable() {
        if (groups_.empty() || meanings_.empty() || tableWritten_) {
            return;
        }
        tableWritten_ = true;
        const auto& [item, group] = groups_.front();
        const bool read = group->read != ReadMode::none;
        out_ += read ? "| Position | Column | Object | Type | Access | Meaning |\n"
                       "|---|---|---|---|---|---|\n"
                     : "| Column | Object | Type | Access | Meaning |\n|---|---|---|---|---|\n";
        std::size_t position = 0;
        for (const ObjectSchema& object : group->objects) {
            const std::string& name = object.object.name;
            const std::string& oid = object.object.oidstr;
            const auto meaning = meanings_.extract(name);
            if (!meaning) {
                problem(std::to_string(item) + " " + name + " has no meaning");
                continue;
            }
            const auto owner = ownerOf(item, oid);
            out_ += read ? "| " + std::to_string(position) + " " : "";
            out_ += "| " +
                    (owner ? oid + " of item " + std::to_string(*owner)
                           : oid.substr(oid.rfind('.') + 1)) +
                    " | " + code(name) + " | " + typeOf(object) + " | " + accessOf(object) + " | " +
                    meaning.mapped() + " |\n";
            ++position;
        }
        for (const auto& [name, meaning] : meanings_) {
            problem(std::to_string(item) + " " + group->name + " has no object " + name);
        }
    }

    void endGroup() {
        endTable();
        if (!groups_.empty() && !tableWritten_) {
            problem(groups_.front().second->name + " has no list of objects");
        }
        groups_.clear();
        meanings_.clear();
        meant_.clear();
        tableWritten_ = false;
    }

    void problem(const std::string& text) { problems_ += (problems_.empty() ? "" : "\n") + text; }

    const CatalogueSchema& catalogue_;
    std::string out_;
    std::string problems_;
    std::set<std::int32_t> described_;
    std::set<std::pair<std::int32_t, std::string>> describedGroups_;
    std::vector<std::int32_t> items_;                                 // of the section
    std::vector<std::pair<std::int32_t, const GroupSchema*>> groups_; // under the last heading
    Meanings meanings_;                                               // of its objects
    std::vector<std::string> meant_; // objects of the list's last line, which may go on
    bool tableWritten_ = false;
};

} // namespace

Result<std::string> objectsDocument(const std::string& source, const CatalogueSchema& catalogue) {
    return ObjectsDocument(catalogue).write(source);
}

} // namespace onudesk
