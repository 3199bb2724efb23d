// SPDX-License-Identifier: MIT
#include "snmp/object_schema.h"

#include "base/numbers.h"

#include <set>
#include <string_view>
#include <utility>

namespace onudesk {

namespace {

std::optional<NumberRange> parseRange(std::string_view text) {
    const auto dots = text.find("..");
    const auto low = parseNumber<std::int64_t>(text.substr(0, dots));
    const auto high =
        dots == std::string_view::npos ? low : parseNumber<std::int64_t>(text.substr(dots + 2));
    if (!low || !high || *low > *high) {
        return std::nullopt;
    }
    return NumberRange{*low, *high};
}

template <typename Value>
std::optional<Value> choose(const std::string& text, const std::map<std::string, Value>& choices) {
    const auto found = choices.find(text);
    return found == choices.end() ? std::nullopt : std::optional(found->second);
}

// Reads an optional range attribute; false when it is there but no range.
bool readRange(const TiXmlElement& element, const char* name, std::optional<NumberRange>& range) {
    const std::string text = attribute(element, name);
    range = text.empty() ? std::nullopt : parseRange(text);
    return text.empty() || range.has_value();
}

// The same for the number of a port.
bool readPort(const TiXmlElement& element, std::optional<std::uint32_t>& port) {
    const std::string text = attribute(element, "port");
    const auto number = parseNumber<std::int64_t>(text);
    if (number && NumberRange{1, UINT32_MAX}.contains(*number)) {
        port = static_cast<std::uint32_t>(*number);
    }
    return text.empty() || port.has_value();
}

Result<ObjectSchema> readObject(const TiXmlElement& element) {
    ObjectSchema schema;
    schema.object = namedObject(element);
    const auto access = choose<ObjectAccess>(attribute(element, "access"),
                                             {{"", ObjectAccess::readOnly},
                                              {"read-only", ObjectAccess::readOnly},
                                              {"read-write", ObjectAccess::readWrite},
                                              {"read-create", ObjectAccess::readCreate},
                                              {"write-only", ObjectAccess::writeOnly}});
    const auto hex = choose<bool>(attribute(element, "format"), {{"", false}, {"hex", true}});
    const auto secret = choose<bool>(attribute(element, "secret"), {{"", false}, {"yes", true}});
    const auto unique = choose<Uniqueness>(
        attribute(element, "unique"),
        {{"", Uniqueness::none}, {"yes", Uniqueness::alone}, {"together", Uniqueness::together}});
    const auto spread = choose<bool>(attribute(element, "spread"), {{"", false}, {"yes", true}});
    const auto index = choose<bool>(attribute(element, "index"), {{"", false}, {"yes", true}});
    const char* wrong = !access                                          ? "access"
                        : !readRange(element, "numbers", schema.numbers) ? "numbers"
                        : !hex                                           ? "format"
                        : !secret                                        ? "secret"
                        : !unique                                        ? "unique"
                        : !index                                         ? "index"
                        : !spread                                        ? "spread"
                        : !readRange(element, "range", schema.range)     ? "range"
                        : !readRange(element, "size", schema.size)       ? "size"
                                                                         : nullptr;
    if (wrong != nullptr) {
        return Error{"object " + schema.object.name + ": bad value of " + wrong + ": \"" +
                     attribute(element, wrong) + "\""};
    }
    schema.access = *access;
    schema.hex = *hex;
    schema.secret = *secret;
    schema.unique = *unique;
    schema.index = *index;
    schema.spread = *spread;
    schema.row = attribute(element, "row");
    schema.member = attribute(element, "member");
    return schema;
}

Result<GroupSchema> readGroup(const TiXmlElement& element) {
    GroupSchema group;
    group.name = attribute(element, "name");
    const auto read = choose<ReadMode>(
        attribute(element, "read"),
        {{"", ReadMode::none}, {"scalar", ReadMode::scalar}, {"table", ReadMode::table}});
    const auto per = choose<ReadScope>(
        attribute(element, "per"),
        {{"", ReadScope::always}, {"onu", ReadScope::onu}, {"port", ReadScope::port}});
    const bool portFits = readPort(element, group.port) && (!group.port || per == ReadScope::port);
    group.staged = attribute(element, "staged");
    group.model = attribute(element, "model");
    const auto slots = choose<bool>(attribute(element, "slots"), {{"", false}, {"yes", true}});
    const bool entriesFit = readRange(element, "entries", group.entries) &&
                            (!group.entries || (group.entries->low >= 0 && !group.staged.empty()));
    const bool slotsFit = slots && (!*slots || (!group.staged.empty() && !group.entries));
    const char* wrong = !read         ? "read"
                        : !per        ? "per"
                        : !portFits   ? "port"
                        : !entriesFit ? "entries"
                        : !slotsFit   ? "slots"
                                      : nullptr;
    if (wrong != nullptr) {
        return Error{std::string("bad value of ") + wrong + ": \"" + attribute(element, wrong) +
                     "\""};
    }
    group.read = *read;
    group.per = *per;
    group.slots = *slots;
    for (const TiXmlElement* child : namedElements(element)) {
        Result<ObjectSchema> object = readObject(*child);
        if (!object) {
            return Error{object.error()};
        }
        group.objects.push_back(std::move(object).value());
    }
    return group;
}

} // namespace

std::vector<const TiXmlElement*> namedElements(const TiXmlElement& parent, const char* element) {
    std::vector<const TiXmlElement*> elements;
    std::set<std::string> names;
    for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        const bool wanted = element == nullptr || child->ValueStr() == element;
        if (wanted && names.insert(attribute(*child, "name")).second) {
            elements.push_back(child);
        }
    }
    return elements;
}

CONFIG_OID_T namedObject(const TiXmlElement& element) {
    return {attribute(element, "name"), attribute(element, "oidstr"),
            leadingInteger(attribute(element, "type"))};
}

Result<CatalogueSchema> readSchema(const TiXmlElement& root) {
    CatalogueSchema schema;
    for (const TiXmlElement* module : namedElements(root, "module")) {
        const std::string name = attribute(*module, "name");
        const auto itemType = parseNumber<std::int32_t>(name);
        if (!itemType) {
            continue;
        }
        ModuleSchema groups;
        for (const TiXmlElement* child : namedElements(*module, "group")) {
            Result<GroupSchema> group = readGroup(*child);
            if (!group) {
                return Error{"module " + name + ", group " + attribute(*child, "name") + ": " +
                             group.error()};
            }
            groups.push_back(std::move(group).value());
        }
        schema.emplace(*itemType, std::move(groups));
    }
    return schema;
}

Result<CatalogueSchema> loadSchema(const std::filesystem::path& path) {
    const Result<XmlDocument> document = loadXml(path);
    if (!document) {
        return Error{document.error()};
    }
    Result<CatalogueSchema> schema = readSchema(*(*document)->RootElement());
    return schema ? std::move(schema) : Error{path.string() + ": " + schema.error()};
}

std::vector<std::string> secretObjects(const CatalogueSchema& catalogue) {
    std::vector<std::string> oids;
    for (const auto& [itemType, groups] : catalogue) {
        for (const GroupSchema& group : groups) {
            for (const ObjectSchema& object : group.objects) {
                if (object.secret) {
                    oids.push_back(object.object.oidstr);
                }
            }
        }
    }
    return oids;
}

} // namespace onudesk
