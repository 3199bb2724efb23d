// SPDX-License-Identifier: MIT
#include "mainform/menu_catalogue.h"

#include "base/numbers.h"
#include "env/client_paths.h"
#include "env/xml_file.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/prompter.h"

namespace onudesk {

namespace {

constexpr int kLevelsBelowItem = 2;

MenuItem readItem(const TiXmlElement& element, int levelsBelow) {
    MenuItem item{leadingInteger(attribute(element, "name"))};
    for (const TiXmlElement* child = levelsBelow == 0 ? nullptr : element.FirstChildElement();
         child != nullptr; child = child->NextSiblingElement()) {
        item.children.push_back(readItem(*child, levelsBelow - 1));
    }
    return item;
}

} // namespace

Menu readMenu(const TiXmlElement& root, const std::string& sessionCaption) {
    Menu menu;
    menu.caption = sessionCaption.empty() ? attribute(root, "type") : sessionCaption;
    for (const TiXmlElement* item = root.FirstChildElement("CONFIG_ITEM"); item != nullptr;
         item = item->NextSiblingElement("CONFIG_ITEM")) {
        menu.items.push_back(readItem(*item, kLevelsBelowItem));
    }
    return menu;
}

std::optional<Menu> loadMenu(const SessionContext& context) {
    const std::string fallback = std::string(kMenuDirectory) + kFallbackMenu;
    // Without a name the path is the directory itself, which is no menu file.
    auto path = context.menuFileName.empty()
                    ? std::nullopt
                    : platform::resolveClientPath(kMenuDirectory + context.menuFileName);
    if (!path) {
        path = platform::resolveClientPath(fallback);
    }
    if (!path) {
        platform::prompt({.text = "File " + fallback + " not found!"});
        return std::nullopt;
    }
    const Result<XmlDocument> document = loadXml(*path);
    if (!document) {
        platform::noteProblem(document.error());
        return std::nullopt;
    }
    return readMenu(*(*document)->RootElement(), context.rootCaption);
}

} // namespace onudesk
