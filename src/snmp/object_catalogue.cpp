// SPDX-License-Identifier: MIT
#include "snmp/object_catalogue.h"

#include "env/client_paths.h"
#include "env/language_module.h"
#include "env/message_ids.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/prompter.h"

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

const TiXmlElement* findModule(const TiXmlElement& root, std::int32_t itemType) {
    const std::string wanted = std::to_string(itemType);
    for (const TiXmlElement* module = root.FirstChildElement("module"); module != nullptr;
         module = module->NextSiblingElement("module")) {
        if (attribute(*module, "name") == wanted) {
            return module;
        }
    }
    return nullptr;
}

ObjectCatalogue catalogueModule(const TiXmlElement& root, std::int32_t itemType) {
    ObjectCatalogue catalogue;
    const TiXmlElement* module = findModule(root, itemType);
    if (module == nullptr) {
        return catalogue;
    }
    for (const TiXmlElement* group = module->FirstChildElement("group"); group != nullptr;
         group = group->NextSiblingElement("group")) {
        std::map<std::string, CONFIG_OID_T> objects;
        for (const TiXmlElement* object = group->FirstChildElement(); object != nullptr;
             object = object->NextSiblingElement()) {
            const std::string name = attribute(*object, "name");
            objects.try_emplace(name, CONFIG_OID_T{name, attribute(*object, "oidstr"),
                                                   leadingInteger(attribute(*object, "type"))});
        }
        catalogue.try_emplace(attribute(*group, "name"), std::move(objects));
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
