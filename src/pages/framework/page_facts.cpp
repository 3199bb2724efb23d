// SPDX-License-Identifier: MIT
#include "pages/framework/page_facts.h"

#include "pages/framework/item_dialog.h"

#include <set>
#include <utility>

namespace onudesk {

namespace {

ButtonUse useOf(const std::string& name, const PageButton& first, ButtonUse firstUse,
                const PageButton& second, ButtonUse secondUse) {
    const auto is = [&name](const char* other) { return other != nullptr && name == other; };
    return is(first.name)    ? firstUse
           : is(second.name) ? secondUse
           : is("helpBtn")   ? ButtonUse::help
           : is("deleteBtn") ? ButtonUse::remove
                             : ButtonUse::other;
}

// The push buttons of a layout and of what stands in it, in its order.
template <typename Use>
void addButtons(const QLayout* layout, Use use, std::vector<ButtonFact>& buttons) {
    for (int at = 0; layout != nullptr && at < layout->count(); ++at) {
        const QWidget* widget = layout->itemAt(at)->widget();
        if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
            const std::string name = bytesOf(button->objectName());
            buttons.push_back({name, button->property(kCaptionId).toInt(), use(name)});
        } else {
            addButtons(widget == nullptr ? layout->itemAt(at)->layout() : widget->layout(), use,
                       buttons);
        }
    }
}

DialogFacts factsOf(const ItemDialog& dialog) {
    const ItemRules& rules = dialog.rules();
    DialogFacts facts{rules.name, rules.titleId, dialog.fields().list(), {}};
    addButtons(
        dialog.layout(),
        [&rules](const std::string& name) {
            return useOf(name, rules.ok, ButtonUse::ok, rules.cancel, ButtonUse::cancel);
        },
        facts.buttons);
    return facts;
}

// What the checks of fields can refuse, and their bounds.
void addFields(const std::vector<Field>& fields, PageFacts& facts, std::set<int>& messageIds) {
    for (const Field& field : fields) {
        if (!field.check) {
            continue;
        }
        messageIds.insert(field.check->messageIds.begin(), field.check->messageIds.end());
        if (field.check->range) {
            ObjectName object = field.object;
            object.group = object.group.empty() ? facts.rules.group : object.group;
            facts.limits.push_back({field.control, std::move(object), *field.check->range});
            messageIds.insert(message::outOfRange);
        }
    }
}

void addMessages(PageFacts& facts) {
    std::set<int> ids;
    addFields(facts.fields, facts, ids);
    for (const DialogFacts& dialog : facts.dialogs) {
        addFields(dialog.fields, facts, ids);
    }
    if (facts.rules.config.name != nullptr) {
        ids.insert({message::succeeded, message::failed}); // how a write ended
    }
    if (facts.deletion || !facts.dialogs.empty()) {
        ids.insert(message::noRowSelected);
    }
    if (facts.deletion && facts.deletion->asks) {
        ids.insert({message::deleteQuestion, message::deleteCaption});
    }
    facts.messageIds.assign(ids.begin(), ids.end());
}

} // namespace

PageFacts factsOf(ConfigPage& page) {
    const PageRules& rules = page.rules();
    PageFacts facts{.itemType = page.itemType(),
                    .className = bytesOf(page.objectName()),
                    .rules = rules,
                    .fields = std::as_const(page).fields().list()};
    for (const char* panel : {"listPanel", "bottomPanel"}) {
        addButtons(
            page.findChild<QFrame*>(QLatin1String(panel))->layout(),
            [&rules](const std::string& name) {
                return useOf(name, rules.config, ButtonUse::config, rules.refresh,
                             ButtonUse::refresh);
            },
            facts.buttons);
    }
    if (auto* list = qobject_cast<ListPage*>(&page)) {
        facts.columns = list->mainTable->columns();
        if (const auto dialog = list->makeDialog(-1)) {
            facts.dialogs.push_back(factsOf(*dialog));
        }
        if (const Deletion* deletion = list->deletion()) {
            facts.deletion = *deletion;
        }
    }
    if (const auto* ports = qobject_cast<const PortListPage*>(&page)) {
        facts.ports = ports->ports();
    }
    addMessages(facts);
    return facts;
}

} // namespace onudesk
