// SPDX-License-Identifier: MIT
//
// The table of a list page: columns as data, rows keyed, one row per reply.
//
//     mainTable->setColumns({{.titleId = 20018, .position = kRowIndex},
//                            {.titleId = 20013, .position = 1, .map = &modes}});
//     mainTable->putReply(result);
#pragma once

#include "pages/framework/value_map.h"
#include "snmp/reply.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <QTableWidget>

namespace onudesk {

// A column's value comes from this position of the reply, or from the OID's last number.
inline constexpr std::size_t kRowIndex = static_cast<std::size_t>(-2);

struct Column {
    int titleId = 0; // message id
    std::size_t position = kRowIndex;
    const ValueMap* map = nullptr; // outlives the table; unknown codes show nothing
    std::string (*show)(const std::string& value) = nullptr;
    bool hidden = false;
    bool isKey = false; // at most one; without one the row index is the key
};

// Report-style list with one selected row at most; a click beside the rows selects none.
class RowTable : public QTableWidget {
    Q_OBJECT
public:
    explicit RowTable(QWidget* parent);

    void setColumns(std::vector<Column> columns);
    // Adds the reply's row, or replaces the one that has its key, and selects the remembered row.
    void putReply(const ReadResult& result);
    void clearRows();

    // Whole bytes of a cell, hidden ones included.
    [[nodiscard]] std::string cell(int row, std::size_t column) const;
    // The row's number in its table on the agent.
    [[nodiscard]] std::string rowIndex(int row) const;
    // -1 when no row is selected.
    [[nodiscard]] int selectedRow() const;
    // The row to select again whenever rows arrive, -1 for none.
    void rememberRow(int row) { remembered_ = row; }

    // Called by clicks and double clicks, with or without a row under the mouse.
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // The row with the key, or where a new one goes; an empty key is no key.
    [[nodiscard]] int rowOf(const std::string& key) const;
    void clearSelectionBeside(const QMouseEvent& event);

    std::vector<Column> columns_;
    int remembered_ = -1;
};

} // namespace onudesk
