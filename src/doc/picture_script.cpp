// SPDX-License-Identifier: MIT
#include "doc/picture_script.h"

#include "doc/page_facts.h"

#include <cstdlib>
#include <map>
#include <sstream>

namespace onudesk {

namespace {

// A line for each step, by item.
std::map<std::int32_t, std::string> stepsByItem(const std::string& steps) {
    std::map<std::int32_t, std::string> found;
    std::istringstream lines(steps);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream parts(line.substr(line.find(' ') + 1));
        for (std::string step; line.front() != '#' && std::getline(parts >> std::ws, step, ';');) {
            found[std::atoi(line.c_str())] += step + "\n";
        }
    }
    return found;
}

void addPages(const std::vector<MenuItem>& items, const std::map<std::int32_t, std::string>& steps,
              std::string& script) {
    for (const MenuItem& item : items) {
        withPage(item.itemType, -1, [&](const ConfigPage& page) {
            const std::string name = std::to_string(item.itemType);
            script += "open " + name + "\nwait\nscreenshot " + name + ".png\n";
            const auto own = steps.find(item.itemType);
            if (own != steps.end()) {
                script += own->second;
            } else if (page.configBtn != nullptr &&
                       dynamic_cast<const ListPage*>(&page) != nullptr) {
                script += "row mainTable 0\nclick " + page.configBtn->objectName().toStdString() +
                          "\nscreenshot " + name + "-dialog.png\nkey Escape\n";
            }
        });
        addPages(item.children, steps, script);
    }
}

} // namespace

std::string pictureScript(const std::vector<MenuItem>& menu, const std::string& steps) {
    const std::map<std::int32_t, std::string> found = stepsByItem(steps);
    const auto first = found.find(0);
    std::string script = first == found.end() ? std::string() : first->second;
    addPages(menu, found, script);
    return script;
}

} // namespace onudesk
