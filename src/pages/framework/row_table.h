// SPDX-License-Identifier: MIT
//
// The table of a list page: columns as data, rows keyed, one row per reply.
//
//     mainTable->setColumns({{.titleId = 20018, .position = kRowIndex},
//                            {.titleId = 20013, .position = 1, .codes = modes}});
//     mainTable->putReply(result);
#pragma once

#include "pages/framework/value_map.h"
#include "window/reply.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include <QAbstractTableModel>
#include <QTableView>
#include <QTimer>

namespace onudesk {

// A column's value comes from this position of the reply, from the last number of the first OID, or
// is that OID.
inline constexpr std::size_t kRowIndex = static_cast<std::size_t>(-2);
inline constexpr std::size_t kWholeOid = static_cast<std::size_t>(-3);

struct Column {
    int titleId = 0; // message id
    std::size_t position = kRowIndex;
    ValueMap codes{}; // unknown ones show nothing
    std::function<std::string(const std::string& value)> show{};
    bool hidden = false;
    bool isKey = false;    // at most one; without one the row index is the key
    bool required = false; // a reply without this value gives no row
};

// A hidden column: what follows that prefix in the OID.
[[nodiscard]] Column instanceColumn(std::string prefix);

// The rows of a table: the values that replies brought. What cells show of them is made on demand.
class RowModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    struct Row {
        std::string index;               // its number in its table on the agent
        std::vector<std::string> values; // whole bytes, one per column
    };

    void setColumns(std::vector<Column> columns);
    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
    // Adds the row or replaces the one that has its key; returns its place. An empty key is no key.
    int put(Row row, const std::string& key);
    void clear();
    // Null when there is no such row.
    [[nodiscard]] const Row* find(int row) const;
    // Whole bytes of a cell as it is shown.
    [[nodiscard]] std::string cell(const Row& row, std::size_t column) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, int> rowOfKey_;
};

// Report-style list with one selected row at most; a click beside the rows selects none.
class RowTable : public QTableView {
    Q_OBJECT
public:
    explicit RowTable(QWidget* parent);

    void setColumns(std::vector<Column> columns);
    [[nodiscard]] const std::vector<Column>& columns() const { return model_.columns(); }
    [[nodiscard]] int rowCount() const { return model_.rowCount(); }
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
    // Columns grow with their texts, but never shrink or become as wide as the window.
    void widen(int column, const QString& text);
    [[nodiscard]] bool isBeside(const QMouseEvent& event) const;
    void clearSelected();
    void paintLater(int row);
    void paintNow();

    RowModel model_;
    int remembered_ = -1;
    bool pressedBeside_ = false;
    QTimer* painting_ = nullptr; // runs while the rows are not painted
};

} // namespace onudesk
