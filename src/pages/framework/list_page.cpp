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

void ListPage::configBtnClick() {
    const int row = requireRow();
    if (row >= 0) {
        mainTable->rememberRow(row);
        openRow(row);
    }
}

void ListPage::mainTableDblClick() {
    if (configBtn->isEnabled()) {
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
