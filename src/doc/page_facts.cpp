// SPDX-License-Identifier: MIT
#include "doc/page_facts.h"

#include "bridge/session.h"
#include "env/language_module.h"
#include "env/message_ids.h"
#include "mainform/page_table.h"
#include "pages/framework/port_list_page.h"
#include "platform/route_mutex.h"

#include <algorithm>
#include <memory>
#include <string>

namespace onudesk {

namespace {

std::string head(int id) {
    return "{" + std::to_string(id) + "}";
}

void add(std::vector<Explained>& list, Explained explained) {
    const bool known = std::ranges::any_of(
        list, [&](const Explained& other) { return other.head == explained.head; });
    if (!known) {
        list.push_back(std::move(explained));
    }
}

// The message whose text is the button's caption.
int captionOf(const QPushButton& button, std::int32_t itemType) {
    for (const auto& [id, text] : currentLanguage().texts()) {
        if ((id / 100 == itemType || id / 100 == message::config / 100) &&
            text == button.text().toStdString()) {
            return id;
        }
    }
    return 0;
}

void addButtons(const ConfigPage& page, TopicFacts& facts) {
    const PageRules& rules = page.rules();
    const bool list = dynamic_cast<const ListPage*>(&page) != nullptr;
    if (page.configBtn != nullptr) {
        add(facts.buttons, {head(rules.config.captionId), list ? "config.row" : "config"});
    }
    for (const QPushButton* button : page.findChildren<QPushButton*>()) {
        if (button != page.configBtn && button != page.refreshBtn && button != page.helpBtn) {
            add(facts.buttons, {head(captionOf(*button, page.itemType())), ""});
        }
    }
    if (page.refreshBtn != nullptr) {
        const bool port = dynamic_cast<const PortListPage*>(&page) != nullptr;
        add(facts.buttons,
            {head(rules.refresh.captionId), port                    ? "refresh.port"
                                            : rules.flagSetsRefresh ? "refresh.list"
                                            : rules.refreshEmpties  ? "refresh.empties"
                                            : list                  ? "refresh.rows"
                                                                    : "refresh"});
    }
    add(facts.buttons, {head(message::help), "help"});
}

} // namespace

void withPage(std::int32_t itemType, std::int32_t port,
              const std::function<void(const ConfigPage& page)>& use) {
    platform::RouteMutex mutex;
    ReplyRouteTable routes{&mutex, {}};
    Session session;
    session.routeTable = &routes;
    session.SubIndex = port;
    const std::unique_ptr<ConfigPage> page(createPage(session, itemType, nullptr));
    if (page != nullptr) {
        use(*page);
    }
}

std::map<int, TopicFacts> pageFacts() {
    std::map<int, TopicFacts> found;
    const auto addFacts = [&](const ConfigPage& page) {
        TopicFacts& facts = found[page.rules().helpKeyId];
        facts.items.insert(page.itemType());
        addButtons(page, facts);
        // The thresholds' page tells in notices of its own what became of a write.
        if (page.configBtn != nullptr && page.objectName() != QLatin1String("TOnuThreshold")) {
            for (const int id : {message::succeeded, message::failed}) {
                add(facts.results, {head(id) + head(message::subject), std::to_string(id)});
            }
        }
    };
    for (const PageEntry& entry : pageTable()) {
        withPage(entry.itemType, -1, addFacts);
        withPage(entry.itemType, 1, addFacts);
    }
    return found;
}

} // namespace onudesk
