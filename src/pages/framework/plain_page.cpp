// SPDX-License-Identifier: MIT
#include "pages/framework/plain_page.h"

#include "pages/framework/form_grid.h"

namespace onudesk {

namespace {

class PlainRecord : public ConfigPage {
public:
    PlainRecord(const RecordPage& facts, Session& session, std::int32_t itemType, QWidget* parent)
        : ConfigPage(session, itemType, facts.rules, parent) {
        if (facts.centred) {
            buildCentredForm(facts.fields);
        } else {
            QWidget* form = buildForm(facts.fields);
            if (facts.width != 0) {
                form->setMinimumWidth(facts.width);
            }
            if (facts.noteId != 0) {
                addNote(*form, facts.noteId);
            }
        }
        start();
    }
};

class PlainTable : public ListPage {
public:
    PlainTable(const TablePage& facts, Session& session, std::int32_t itemType, QWidget* parent)
        : ListPage(session, itemType, facts.rules, parent) {
        mainTable->setColumns(facts.columns);
        editRowsIn(facts.dialog);
        start();
    }
};

} // namespace

ConfigPage* makePlainPage(const RecordPage& facts, Session& session, std::int32_t itemType,
                          QWidget* parent) {
    return new PlainRecord(facts, session, itemType, parent);
}

ConfigPage* makePlainPage(const TablePage& facts, Session& session, std::int32_t itemType,
                          QWidget* parent) {
    return new PlainTable(facts, session, itemType, parent);
}

} // namespace onudesk
