// SPDX-License-Identifier: MIT
#include "doc/topic_facts.h"

#include <algorithm>
#include <string>

namespace onudesk {

namespace {

std::string head(int id) {
    return "{" + std::to_string(id) + "}";
}

void add(std::vector<Explained>& list, Explained explained) {
    if (std::ranges::find(list, explained.head, &Explained::head) == list.end()) {
        list.push_back(std::move(explained));
    }
}

std::string explanationOf(const ButtonFact& button, const PageFacts& page) {
    const PageRules& rules = page.rules;
    const bool isList = !page.columns.empty();
    switch (button.use) {
    case ButtonUse::config:
        return isList ? "config.row" : "config";
    case ButtonUse::refresh:
        return page.ports              ? "refresh.port"
               : rules.flagSetsRefresh ? "refresh.list"
               : rules.refreshEmpties  ? "refresh.empties"
               : isList                ? "refresh.rows"
                                       : "refresh";
    case ButtonUse::remove:
        return !page.deletion ? "" : page.deletion->asks ? "delete.asks" : "delete";
    case ButtonUse::help:
        return "help";
    default:
        return {};
    }
}

// What the fields are called, and what their checks refuse.
void addFields(const std::vector<Field>& fields, TopicFacts& facts) {
    for (const Field& field : fields) {
        if (field.labelId != 0) {
            facts.captions.insert(field.labelId);
        }
        if (!field.check) {
            continue;
        }
        const std::string id = std::to_string(message::outOfRange);
        if (const auto& range = field.check->range) {
            add(facts.messages, {"{" + id + ":" + std::to_string(range->minimum) + "," +
                                     std::to_string(range->maximum) + "}",
                                 field.check->empty == EmptyText::fails ? id : id + ".focus"});
        }
        for (const int refused : field.check->messageIds) {
            if (refused != message::outOfRange) {
                add(facts.messages, {head(refused), std::to_string(refused)});
            }
        }
    }
}

void addPage(const PageFacts& page, TopicFacts& facts) {
    facts.items.insert(page.itemType);
    for (const ButtonFact& button : page.buttons) {
        add(facts.buttons, {head(button.captionId), explanationOf(button, page)});
    }
    const auto says = [&page](int id) {
        return std::ranges::find(page.messageIds, id) != page.messageIds.end();
    };
    for (const int id : {message::noRowSelected, message::deleteQuestion}) {
        if (says(id)) {
            add(facts.messages, {head(id), std::to_string(id)});
        }
    }
    addFields(page.fields, facts);
    for (const DialogFacts& dialog : page.dialogs) {
        addFields(dialog.fields, facts);
    }
    for (const Column& column : page.columns) {
        if (!column.hidden) {
            facts.captions.insert(column.titleId);
        }
    }
    for (const int id : {message::succeeded, message::failed}) {
        if (says(id)) {
            add(facts.results, {head(id) + head(message::subject), std::to_string(id)});
        }
    }
}

} // namespace

std::map<int, TopicFacts> topicFacts(const std::vector<PageFacts>& pages) {
    std::map<int, TopicFacts> found;
    for (const PageFacts& page : pages) {
        addPage(page, found[page.rules.helpKeyId]);
    }
    return found;
}

} // namespace onudesk
