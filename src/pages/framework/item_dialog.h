// SPDX-License-Identifier: MIT
//
// The dialog in which one row of a list page is edited.
//
//     class TOnuExampleItem : public ItemDialog { … };
//     TOnuExampleItem dialog(*this, row);
//     dialog.exec();
#pragma once

#include "pages/framework/field_set.h"
#include "pages/framework/list_page.h"
#include "pages/framework/title_bar.h"

#include <string>
#include <vector>

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace onudesk {

struct ItemRules {
    int titleId = message::itemTitle;
    // Their positions are columns of the page's table. The first one is the row's key.
    std::vector<Field> fields{};
    int pairs = 1;                       // of label and control side by side
    PageButton ok{"okBtn", message::ok}; // without a name there is none
    PageButton cancel{"cancelBtn", message::cancel};
    bool refreshesPage = true; // whenever it closes; else closing leaves the page as it is
};

// Modal, borderless, dragged by its title. OK checks the fields, sends them for the row through the
// page, which gets the answer, and accepts. Cancel, the close panel and Escape reject it; a dialog
// that makes the page read again empties the page's table then. The page outlives the dialog.
class ItemDialog : public QDialog {
    Q_OBJECT
public:
    // Shows the cells of the page's row; with row -1 the fields stay empty.
    ItemDialog(ListPage& page, ItemRules rules, int row);

    TitleBar* TitlePanel = nullptr;
    QWidget* WorkPanel = nullptr; // controls
    QPushButton* okBtn = nullptr; // null when the rules name none
    QPushButton* cancelBtn = nullptr;

    virtual void okBtnClick();
    void cancelBtnClick() { reject(); }
    void ClosePanelClick() { reject(); }

    void reject() override;
    void done(int result) override;

protected:
    // Everything that can stop OK, told to the operator.
    [[nodiscard]] virtual bool mayWrite();
    virtual void bindWrite(WriteRequest& request);
    // The instance that is written: the ONU's, ".", and the row's key.
    [[nodiscard]] virtual std::string instance() const;
    // What closing does to the page.
    void FormClose();

    // Further fields, in an area of their own below the others; pairs of label and control stand
    // side by side. They follow the others when they are shown, checked and written.
    void addFields(QWidget& area, const std::vector<Field>& fields, int pairs);
    // A button before Cancel.
    QPushButton* addButton(const char* name, int captionId, std::function<void()> onClick);
    [[nodiscard]] FieldSet& fields() { return fields_; }
    [[nodiscard]] const FieldSet& fields() const { return fields_; }
    void refuse(const CheckFailure& failure, QWidget* focus) const;

private:
    ListPage& page_;
    const ItemRules rules_;
    FieldSet fields_;
    QHBoxLayout* buttons_;
};

} // namespace onudesk
