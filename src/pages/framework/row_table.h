// SPDX-License-Identifier: MIT
//
// The table of a list page: columns as data, rows keyed, one row per reply.
//
//     mainTable->setColumns({{.titleId = 20018, .position = kRowIndex},
//                            {.titleId = 20013, .position = 1, .map = &modes}});
//     mainTable->putReply(result);
#pragma once

#include "pages/framework/value_map.h"
#include "window/reply.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include <QTableWidget>
#include <QTimer>

namespace onudesk {

// A column's value comes from this position of the reply, from the last number of the first OID, or
// is that OID.
inline constexpr std::size_t kRowIndex = static_cast<std::size_t>(-2);
inline constexpr std::size_t kWholeOid = static_cast<std::size_t>(-3);

struct Column {
    int titleId = 0; // message id
    std::size_t position = kRowIndex;
    const ValueMap* map = nullptr; // outlives the table; unknown codes show nothing
    std::string (*show)(const std::string& value) = nullptr;
    bool hidden = false;
    bool isKey = false;    // at most one; without one the row index is the key
    bool required = false; // a reply without this value gives no row
};

// Report-style list with one selected row at most; a click beside the rows selects none.
class RowTable : public QTableWidget {
    Q_OBJECT
public:
    explicit RowTable(QWidget* parent);

    void setColumns(std::vector<Column> columns);
    // Adds the reply's row, or replaces the one that has its key, and selects the remembered row.
    // Returns the row, or -1 when the reply lacks a required value.
    int putReply(const ReadResult& result);
    void clearRows();

    // Whole bytes of a cell, hidden ones included.
    [[nodiscard]] std::string cell(int row, std::size_t column) const;
    // All cells of a row, and the values they were made of; none when there is no such row.
    [[nodiscard]] std::vector<std::string> cells(int row) const;
    [[nodiscard]] std::vector<std::string> values(int row) const;
    // The row's number in its table on the agent.
    [[nodiscard]] std::string rowIndex(int row) const;
    // -1 when no row is selected.
    [[nodiscard]] int selectedRow() const;
    // The row to select again whenever rows arrive, -1 for none.
    void rememberRow(int row) { remembered_ = row; }

    // Called by clicks, with or without a row under the mouse, and by keys that select another
    // row; by double clicks.
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct Row {
        std::string index;
        std::vector<std::string> cells; // whole bytes, whatever of them can be shown
        std::vector<std::string> values;
    };

    [[nodiscard]] const Row* find(int row) const;
    // The row with the key, or where a new one goes; an empty key is no key.
    [[nodiscard]] int rowOf(const std::string& key);
    // Columns grow with their texts, but never shrink or become as wide as the window.
    void widen(int column, const QString& text);
    [[nodiscard]] bool isBeside(const QMouseEvent& event) const;
    void clearSelected();
    void paintLater(int row);
    void paintNow();

    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, int> rowOfKey_;
    int remembered_ = -1;
    bool pressedBeside_ = false;
    QTimer* painting_ = nullptr; // runs while the rows are not painted
};

} // namespace onudesk
