// SPDX-License-Identifier: MIT
#include "pages/framework/item_dialog.h"

#include <utility>

#include <QVBoxLayout>

namespace onudesk {

namespace {

// 0xE4B483 as blue, green, red.
const QColor kDialogTitle(0x83, 0xB4, 0xE4);
const QColor kDialogColour(232, 240, 247);

} // namespace

ItemDialog::ItemDialog(ListPage& page, ItemRules rules, int row)
    : QDialog(&page, Qt::Dialog | Qt::FramelessWindowHint),
      TitlePanel(new TitleBar(this, kDialogTitle)), WorkPanel(new QWidget(this)), page_(page),
      rules_(std::move(rules)), rowIndex_(page.mainTable->rowIndex(row)),
      buttons_(new QHBoxLayout) {
    setObjectName(QString::fromStdString(rules_.name));
    setFont(textFont());
    paintPlain(*this, kDialogColour);
    setCaption(*this, rules_.titleId);
    setCaption(*TitlePanel->TitleLabel, rules_.titleId);
    TitlePanel->onClose = [this] { ClosePanelClick(); };
    new QVBoxLayout(WorkPanel);
    if (!rules_.fields.empty()) {
        auto* area = new QWidget(WorkPanel);
        addFields(*area, rules_.fields, rules_.pairs);
        if (rules_.noteId != 0) {
            addNote(*area, rules_.noteId);
        }
    }
    buttons_->addStretch();
    if (rules_.ok.name != nullptr) {
        okBtn = makeButton(this, rules_.ok.name, rules_.ok.captionId, [this] { okBtnClick(); });
        buttons_->addWidget(okBtn);
    }
    cancelBtn =
        makeButton(this, rules_.cancel.name, rules_.cancel.captionId, [this] { cancelBtnClick(); });
    buttons_->addWidget(cancelBtn);
    buttons_->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2, 2, 2, 8);
    column->addWidget(TitlePanel);
    column->addWidget(WorkPanel, 1);
    column->addLayout(buttons_);
    fields_.showRow(*page.mainTable, row);
}

void ItemDialog::addFields(QWidget& area, const std::vector<Field>& fields, int pairs) {
    FormGrid form(area, pairs);
    fields_.add(form, fields);
    WorkPanel->layout()->addWidget(&area);
    tabThrough(*WorkPanel, *buttons_);
}

QPushButton* ItemDialog::addButton(const char* name, int captionId, std::function<void()> onClick) {
    QPushButton* button = makeButton(this, name, captionId, std::move(onClick));
    // Before Cancel and the stretch behind it.
    buttons_->insertWidget(buttons_->count() - 2, button);
    tabThrough(*WorkPanel, *buttons_);
    return button;
}

bool ItemDialog::mayWrite() {
    return fields_.check(page_.replyHandle());
}

void ItemDialog::bindWrite(WriteRequest& request) {
    fields_.bind(request, instance());
}

std::string ItemDialog::instance() const {
    const std::string& onu = page_.session().OnuIndexText;
    if (rules_.instance == RowInstance::rowIndex) {
        return onu + "." + rowIndex_;
    }
    return rules_.fields.empty()
               ? onu
               : onu + "." + stateOf(*fields_.control(rules_.fields.front().control)).text;
}

void ItemDialog::okBtnClick() {
    if (!mayWrite()) {
        return;
    }
    if (WriteRequest request = page_.beginWrite()) {
        bindWrite(request);
        page_.finishWrite(std::move(request));
        accept();
    }
}

void ItemDialog::done(int result) {
    const bool closing = isVisible();
    QDialog::done(result);
    if (closing) {
        FormClose();
    }
}

void ItemDialog::FormClose() {
    page_.refreshBtnClick(); // which empties its table, too
}

void ItemDialog::refuse(const CheckFailure& failure, QWidget* focus) const {
    onudesk::refuse(failure, focus, page_.replyHandle());
}

} // namespace onudesk
