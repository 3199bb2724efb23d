// SPDX-License-Identifier: MIT
//
// The dialog in which one row of a list page is edited.
//
//     ItemDialog dialog(*this, {.name = "TOnuExampleItem", .fields = {…}}, row);
//     dialog.exec();
#pragma once

#include "pages/framework/field_set.h"
#include "pages/framework/item_rules.h"
#include "pages/framework/list_page.h"
#include "pages/framework/title_bar.h"

#include <functional>
#include <string>
#include <vector>

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace onudesk {

// Modal, borderless, dragged by its title. OK checks the fields, sends them for the row through the
// page, which gets the answer, and accepts. Cancel, the close panel and Escape reject it; closed,
// it makes the page read again. The page outlives the dialog.
class ItemDialog : public QDialog {
    Q_OBJECT
public:
    // Shows the cells of the page's row; with row -1 the fields stay empty.
    ItemDialog(ListPage& page, ItemRules rules, int row);

    TitleBar* TitlePanel = nullptr;
    QWidget* WorkPanel = nullptr; // controls
    QPushButton* okBtn = nullptr; // null when the rules name none
    QPushButton* cancelBtn = nullptr;

    [[nodiscard]] const ItemRules& rules() const { return rules_; }
    [[nodiscard]] const FieldSet& fields() const { return fields_; }

    virtual void okBtnClick();
    void cancelBtnClick() { reject(); }
    void ClosePanelClick() { reject(); }

    void done(int result) override;

protected:
    // Everything that can stop OK, told to the operator.
    [[nodiscard]] virtual bool mayWrite();
    virtual void bindWrite(WriteRequest& request);
    // The instance that is written: the ONU's, ".", and what the rules say.
    [[nodiscard]] virtual std::string instance() const;
    // What closing does to the page.
    virtual void FormClose();

    // Further fields, in an area of their own below the others; pairs of label and control stand
    // side by side. They follow the others when they are shown, checked and written.
    void addFields(QWidget& area, const std::vector<Field>& fields, int pairs);
    // A button before Cancel.
    QPushButton* addButton(const char* name, int captionId, std::function<void()> onClick);
    [[nodiscard]] FieldSet& fields() { return fields_; }
    void refuse(const CheckFailure& failure, QWidget* focus) const;

private:
    ListPage& page_;
    const ItemRules rules_;
    const std::string rowIndex_;
    FieldSet fields_;
    QHBoxLayout* buttons_;
};

} // namespace onudesk
