// SPDX-License-Identifier: MIT
//
// A page whose replies are rows of a table, and the dialog in which one row is edited.
#pragma once

#include "pages/framework/config_page.h"
#include "pages/framework/row_table.h"
#include "pages/framework/title_bar.h"

#include <cstdint>
#include <vector>

#include <QDialog>
#include <QPushButton>

namespace onudesk {

// Refresh empties the table; every reply puts one row into it.
class ListPage : public ConfigPage {
    Q_OBJECT
public:
    ListPage(Session& session, std::int32_t itemType, PageRules rules, std::vector<Column> columns,
             QWidget* parent);

    RowTable* mainTable = nullptr;

    // The selected row, or -1 after telling the operator to select one (message 11204).
    [[nodiscard]] int requireRow();

    // Act on the selected row of mainTable, if there is one.
    virtual void mainTableClick() {}
    virtual void mainTableDblClick() {}

protected:
    void prepareRefresh() override;
    void fillPage(const ReadResult& result) override;
};

// Modal, borderless, dragged by its title. The page owns it and runs it with exec(). Cancel and the
// close panel reject it and empty the page's table; closing it in any way makes the page read
// again.
class ItemDialog : public QDialog {
    Q_OBJECT
public:
    explicit ItemDialog(ListPage& page, int titleId);

    TitleBar* TitlePanel = nullptr;
    QWidget* WorkPanel = nullptr; // controls go here
    QPushButton* okBtn = nullptr;
    QPushButton* cancelBtn = nullptr;

    void cancelBtnClick();
    void ClosePanelClick() { cancelBtnClick(); }

    void done(int result) override;

protected:
    virtual void okBtnClick();
    // What closing does to the page.
    virtual void FormClose();
    [[nodiscard]] ListPage& page() const { return page_; }

private:
    ListPage& page_;
};

} // namespace onudesk
