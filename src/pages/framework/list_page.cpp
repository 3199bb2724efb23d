// SPDX-License-Identifier: MIT
#include "pages/framework/list_page.h"

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

std::optional<ListPage::RowCopy> ListPage::rowToDelete(std::size_t instanceColumn,
                                                       const std::string& what) {
    const int row = requireRow();
    if (row < 0) {
        return std::nullopt;
    }
    RowCopy copy{.row = row, .cells = mainTable->cells(row), .values = mainTable->values(row)};
    if (copy.cells[instanceColumn].empty()) {
        refuse({message::noRowSelected}, mainTable);
        return std::nullopt;
    }
    return confirmDelete(replyHandle(), what) ? std::optional(std::move(copy)) : std::nullopt;
}

void ListPage::configBtnClick() {
    const int row = requireRow();
    if (row >= 0) {
        mainTable->rememberRow(row);
        openRow(row);
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

void ListPage::fillPage(const ReadResult& result) {
    const int row = mainTable->putReply(result);
    if (row >= 0) {
        rowArrived(row, result);
    }
}

} // namespace onudesk
