// SPDX-License-Identifier: MIT
//
// A page whose replies are rows of a table.
#pragma once

#include "pages/framework/config_page.h"
#include "pages/framework/row_table.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk {

// Refresh empties the table; every reply puts one row into it. Config, and a double click, opens
// the selected row.
class ListPage : public ConfigPage {
    Q_OBJECT
public:
    ListPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent);

    RowTable* mainTable = nullptr;

    // The selected row, or -1 after telling the operator to select one (message 11204).
    [[nodiscard]] int requireRow();

    // A row as it was when the operator was asked about it; it may go while the question is open.
    struct RowCopy {
        int row = -1;
        std::vector<std::string> cells;
        std::vector<std::string> values;
    };
    // The selected row when the operator wants it deleted. Without a selected row, or without its
    // instance in that column, the operator is told to select one; `what` ends the caption of the
    // question.
    [[nodiscard]] std::optional<RowCopy> rowToDelete(std::size_t instanceColumn,
                                                     const std::string& what = {});

    // With a row selected; without, the operator is told.
    void configBtnClick() override;
    // Act on the selected row of mainTable, if there is one.
    virtual void mainTableClick() {}
    virtual void mainTableDblClick();

protected:
    // Shows the row's dialog.
    virtual void openRow(int /*row*/) {}
    void prepareRefresh() override;
    void fillPage(const ReadResult& result) override;
    // A reply has put this row into the table.
    virtual void rowArrived(int /*row*/, const ReadResult& /*result*/) {}
};

} // namespace onudesk
