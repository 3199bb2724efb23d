// SPDX-License-Identifier: MIT
//
// A page whose replies are rows of a table.
#pragma once

#include "pages/framework/config_page.h"
#include "pages/framework/item_rules.h"
#include "pages/framework/row_table.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace onudesk {

class ItemDialog;

// A row as it was when the operator was asked about it; it may go while the question is open.
struct RowCopy {
    std::string index; // its number in its table on the agent
    std::vector<std::string> cells;
    std::vector<std::string> values;
};

// How deleteBtn destroys the selected row: what is written, in order, before the row status.
struct Deletion {
    enum class Take { cell, value, mac }; // the cell's text, the value behind it, or its six bytes
    struct Binding {
        std::string object;
        std::size_t column = 0;
        Take take = Take::cell;
    };
    int captionId = message::remove; // of deleteBtn
    bool asks = false;
    std::string what{}; // ends the caption of the question
    bool remembersRow = true;
    std::vector<Binding> bindings{};
    ObjectName rowStatus{};
    // The row's instance; without one the row counts as not selected. No function: the ONU's, ".",
    // and the index of the row.
    std::function<std::string(const RowCopy& row)> instance{};
};

// Refresh empties the table; every reply puts one row into it. Config, and a double click, opens
// the selected row.
class ListPage : public ConfigPage {
    Q_OBJECT
public:
    ListPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent);

    RowTable* mainTable = nullptr;
    QPushButton* deleteBtn = nullptr; // null when nothing can be deleted

    // What was declared; null without.
    [[nodiscard]] const Deletion* deletion() const { return deletion_.get(); }
    // The dialog of a row, not shown, or of none with -1; null when rows have none.
    [[nodiscard]] std::unique_ptr<ItemDialog> makeDialog(int row);

    // The selected row, or -1 after telling the operator to select one (message 11204).
    [[nodiscard]] int requireRow();

    // With a row selected; without, the operator is told.
    void configBtnClick() override;
    void deleteSelectedRow();
    // Act on the selected row of mainTable, if there is one.
    virtual void mainTableClick() {}
    virtual void mainTableDblClick();

protected:
    // Declares the dialog of a row: by its rules, or by a function that makes it.
    void editRowsIn(const ItemRules& rules);
    void editRowsIn(std::function<ItemDialog*(int row)> make);
    // Declares deleteBtn.
    void deleteRowsBy(Deletion deletion);

    // Shows the row's dialog; -1 for a new row.
    void openRow(int row);
    // Everything that can stop Config on a selected row, told to the operator.
    [[nodiscard]] virtual bool mayOpen() { return true; }
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;
    // A reply has put this row into the table.
    virtual void rowArrived(int /*row*/, const ReadResult& /*result*/) {}

private:
    std::function<ItemDialog*(int row)> makeDialog_;
    std::unique_ptr<const Deletion> deletion_;
};

} // namespace onudesk
