// SPDX-License-Identifier: MIT
#include "doc/picture_script.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace onudesk {

namespace {

// A line for each step, by item.
std::map<std::int32_t, std::string> stepsByItem(const std::string& steps) {
    std::map<std::int32_t, std::string> found;
    for (const Line& line : lines(steps)) {
        std::istringstream parts(std::string(line.text.substr(line.text.find(' ') + 1)));
        for (std::string step;
             !line.text.starts_with('#') && std::getline(parts >> std::ws, step, ';');) {
            found[leadingInteger(line.text)] += step + "\n";
        }
    }
    return found;
}

// What is done on a page behind its picture.
std::string dialogSteps(const PageFacts& page, const std::string& name) {
    const auto config = std::ranges::find(page.buttons, ButtonUse::config, &ButtonFact::use);
    if (page.dialogs.empty() || config == page.buttons.end()) {
        return {};
    }
    return "row mainTable 0\nclick " + config->name + "\nscreenshot " + name +
           "-dialog.png\nkey Escape\n";
}

void addPages(const std::vector<MenuItem>& items, const std::vector<PageFacts>& pages,
              const std::map<std::int32_t, std::string>& steps, std::string& script) {
    for (const MenuItem& item : items) {
        const auto page = std::ranges::find(pages, item.itemType, &PageFacts::itemType);
        if (page != pages.end()) {
            const std::string name = std::to_string(item.itemType);
            script.append("open ").append(name).append("\nwait\nscreenshot ").append(name);
            const auto own = steps.find(item.itemType);
            script += ".png\n" + (own == steps.end() ? dialogSteps(*page, name) : own->second);
        }
        addPages(item.children, pages, steps, script);
    }
}

} // namespace

std::string pictureScript(const std::vector<MenuItem>& menu, const std::vector<PageFacts>& pages,
                          const std::string& steps) {
    const std::map<std::int32_t, std::string> found = stepsByItem(steps);
    const auto first = found.find(0);
    std::string script = first == found.end() ? std::string() : first->second;
    addPages(menu, pages, found, script);
    return script;
}

} // namespace onudesk
