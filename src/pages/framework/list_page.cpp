// SPDX-License-Identifier: MIT
#include "pages/framework/list_page.h"

#include "pages/framework/item_dialog.h"
#include "snmp/row_status.h"

#include <utility>

#include <QVBoxLayout>

namespace onudesk {

ListPage::ListPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent)
    : ConfigPage(session, itemType, std::move(rules), parent), mainTable(new RowTable(listPanel)) {
    mainTable->onClick = [this] { mainTableClick(); };
    mainTable->onDoubleClick = [this] { mainTableDblClick(); };
    auto* column = new QVBoxLayout(listPanel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mainTable, 1);
}

int ListPage::requireRow() {
    const int row = mainTable->selectedRow();
    if (row < 0) {
        refuse({message::noRowSelected}, mainTable);
    }
    return row;
}

void ListPage::editRowsIn(const ItemRules& rules) {
    makeDialog_ = [this, rules](int row) { return new ItemDialog(*this, rules, row); };
}

void ListPage::editRowsIn(std::function<ItemDialog*(int row)> make) {
    makeDialog_ = std::move(make);
}

std::unique_ptr<ItemDialog> ListPage::makeDialog(int row) {
    return std::unique_ptr<ItemDialog>(makeDialog_ ? makeDialog_(row) : nullptr);
}

void ListPage::openRow(int row) {
    const auto dialog = makeDialog(row);
    if (dialog->rules().registersWhenShown) {
        registerWriteRoute(session(), itemType(), replyHandle());
    }
    dialog->exec();
}

void ListPage::deleteRowsBy(Deletion deletion) {
    deletion_ = std::make_unique<const Deletion>(std::move(deletion));
    deleteBtn =
        addRequestButton("deleteBtn", deletion_->captionId, [this] { deleteSelectedRow(); });
    cycle().addWriteButton(deleteBtn);
}

void ListPage::deleteSelectedRow() {
    const int row = requireRow();
    if (row < 0) {
        return;
    }
    const RowCopy copy{mainTable->rowIndex(row), mainTable->cells(row), mainTable->values(row)};
    const std::string instance =
        deletion_->instance ? deletion_->instance(copy) : session().OnuIndexText + "." + copy.index;
    if (instance.empty()) {
        refuse({message::noRowSelected}, mainTable);
        return;
    }
    if (deletion_->asks && !confirmDelete(replyHandle(), deletion_->what)) {
        return;
    }
    if (deletion_->remembersRow) {
        mainTable->rememberRow(row);
    }
    WriteRequest request = beginWrite();
    if (!request) {
        return;
    }
    for (const auto& [object, column, take] : deletion_->bindings) {
        if (take == Deletion::Take::mac) {
            request.bind({object}, bytesOfHex(copy.cells[column]), instance, kMacBytes);
        } else {
            const auto& texts = take == Deletion::Take::cell ? copy.cells : copy.values;
            request.bind({object}, texts[column], instance);
        }
    }
    request.bind(deletion_->rowStatus, rowStatusText(RowStatus::destroy), instance);
    finishWrite(std::move(request));
}

void ListPage::configBtnClick() {
    const int row = requireRow();
    if (row >= 0) {
        mainTable->rememberRow(row);
        if (mayOpen()) {
            openRow(row);
        }
    }
}

void ListPage::mainTableDblClick() {
    if (configBtn != nullptr && configBtn->isEnabled()) {
        configBtnClick();
    }
}

void ListPage::prepareRefresh() {
    mainTable->clearRows();
}

void ListPage::showReply(const ReadResult& result) {
    const int row = mainTable->putReply(result);
    if (row >= 0) {
        rowArrived(row, result);
    }
}

} // namespace onudesk
