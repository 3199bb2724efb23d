// SPDX-License-Identifier: MIT
#include "pages/framework/list_page.h"

#include <utility>

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kOkCaption = 20005;
constexpr int kCancelCaption = 20006;
// 0xE4B483 as blue, green, red.
const QColor kDialogTitle(0x83, 0xB4, 0xE4);
const QColor kDialogColour(232, 240, 247);

} // namespace

ListPage::ListPage(Session& session, std::int32_t itemType, PageRules rules,
                   std::vector<Column> columns, QWidget* parent)
    : ConfigPage(session, itemType, std::move(rules), parent), mainTable(new RowTable(listPanel)) {
    mainTable->setColumns(std::move(columns));
    mainTable->onClick = [this] { mainTableClick(); };
    mainTable->onDoubleClick = [this] { mainTableDblClick(); };
    auto* column = new QVBoxLayout(listPanel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(mainTable);
}

int ListPage::requireRow() {
    const int row = mainTable->selectedRow();
    if (row < 0) {
        refuse({message::noRowSelected}, mainTable);
    }
    return row;
}

void ListPage::prepareRefresh() {
    mainTable->clearRows();
}

void ListPage::fillPage(const ReadResult& result) {
    mainTable->putReply(result);
}

ItemDialog::ItemDialog(ListPage& page, int titleId)
    : QDialog(&page, Qt::Dialog | Qt::FramelessWindowHint),
      TitlePanel(new TitleBar(this, kDialogTitle)), WorkPanel(new QWidget(this)), page_(page) {
    paintPlain(*this, kDialogColour);
    setCaption(*this, titleId);
    setCaption(*TitlePanel->TitleLabel, titleId);
    TitlePanel->onClose = [this] { ClosePanelClick(); };
    okBtn = makeButton(this, "okBtn", kOkCaption, [this] { okBtnClick(); });
    cancelBtn = makeButton(this, "cancelBtn", kCancelCaption, [this] { cancelBtnClick(); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(okBtn);
    buttons->addWidget(cancelBtn);
    buttons->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2, 2, 2, 8);
    column->addWidget(TitlePanel);
    column->addWidget(WorkPanel, 1);
    column->addLayout(buttons);
}

void ItemDialog::okBtnClick() {
    accept();
}

void ItemDialog::cancelBtnClick() {
    page_.mainTable->clearRows();
    reject();
}

void ItemDialog::done(int result) {
    const bool closing = isVisible();
    QDialog::done(result);
    if (closing) {
        FormClose();
    }
}

void ItemDialog::FormClose() {
    page_.refreshBtnClick();
}

} // namespace onudesk
