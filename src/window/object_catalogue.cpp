// SPDX-License-Identifier: MIT
#include "window/object_catalogue.h"

#include "env/client_paths.h"
#include "env/language_module.h"
#include "env/message_ids.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/prompter.h"
#include "snmp/object_schema.h"

#include <utility>

namespace onudesk {

namespace {

ObjectCatalogue readCatalogue(std::int32_t itemType) {
    const auto path = platform::resolveClientPath(kCatalogueFile);
    if (!path) {
        return {};
    }
    const Result<XmlDocument> document = loadXml(*path);
    if (!document) {
        platform::noteProblem(document.error());
        return {};
    }
    return catalogueModule(*(*document)->RootElement(), itemType);
}

} // namespace

ObjectCatalogue catalogueModule(const TiXmlElement& root, std::int32_t itemType) {
    ObjectCatalogue catalogue;
    for (const TiXmlElement* module : namedElements(root, "module")) {
        if (attribute(*module, "name") != std::to_string(itemType)) {
            continue;
        }
        for (const TiXmlElement* group : namedElements(*module, "group")) {
            auto& objects = catalogue[attribute(*group, "name")];
            for (const TiXmlElement* element : namedElements(*group)) {
                CONFIG_OID_T object = namedObject(*element);
                objects.emplace(object.name, std::move(object));
            }
        }
    }
    return catalogue;
}

ObjectCatalogue loadCatalogue(std::int32_t itemType) {
    ObjectCatalogue catalogue = readCatalogue(itemType);
    if (catalogue.empty()) {
        platform::prompt({.text = messageText(message::catalogueUnusable),
                          .caption = messageText(message::noticeCaption),
                          .icon = platform::PromptIcon::warning});
    }
    return catalogue;
}

const CONFIG_OID_T* lookup(const ObjectCatalogue& catalogue, const std::string& group,
                           const std::string& object) {
    const auto objects = catalogue.find(group);
    if (objects == catalogue.end()) {
        return nullptr;
    }
    const auto found = objects->second.find(object);
    return found == objects->second.end() ? nullptr : &found->second;
}

} // namespace onudesk
