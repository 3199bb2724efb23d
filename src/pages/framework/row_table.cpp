// SPDX-License-Identifier: MIT
#include "pages/framework/row_table.h"

#include "env/language_module.h"
#include "pages/framework/controls.h"

#include <algorithm>
#include <utility>

#include <QHeaderView>
#include <QMouseEvent>

namespace onudesk {

namespace {

constexpr int kRowIndexRole = Qt::UserRole;
constexpr int kKeyRole = Qt::UserRole + 1;
constexpr int kBytesRole = Qt::UserRole + 2;

std::string cellText(const Column& column, const ReadResult& result, const std::string& rowIndex) {
    if (column.position == kRowIndex) {
        return rowIndex;
    }
    const std::string& value = valueAt(result, column.position);
    if (column.map != nullptr) {
        return column.map->textOf(value);
    }
    return column.show != nullptr ? column.show(value) : value;
}

} // namespace

RowTable::RowTable(QWidget* parent) : QTableWidget(parent) {
    setObjectName(QStringLiteral("mainTable"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
}

void RowTable::setColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    setColumnCount(static_cast<int>(columns_.size()));
    QStringList titles;
    for (std::size_t at = 0; at < columns_.size(); ++at) {
        titles << shown(messageText(columns_[at].titleId));
        setColumnHidden(static_cast<int>(at), columns_[at].hidden);
    }
    setHorizontalHeaderLabels(titles);
}

void RowTable::putReply(const ReadResult& result) {
    const std::string index = result.oids.empty() ? std::string() : rowIndexOf(result.oids.front());
    std::string key = index;
    std::vector<std::string> cells;
    for (const Column& column : columns_) {
        cells.push_back(cellText(column, result, index));
        key = column.isKey ? cells.back() : key;
    }
    const int row = rowOf(key);
    if (row == rowCount()) {
        insertRow(row);
    }
    for (std::size_t at = 0; at < cells.size(); ++at) {
        auto* cell = new QTableWidgetItem(shown(cells[at]));
        cell->setData(kBytesRole, QByteArray::fromStdString(cells[at]));
        setItem(row, static_cast<int>(at), cell);
    }
    item(row, 0)->setData(kRowIndexRole, QByteArray::fromStdString(index));
    item(row, 0)->setData(kKeyRole, QByteArray::fromStdString(key));
    if (0 <= remembered_ && remembered_ < rowCount()) {
        selectRow(remembered_);
    }
}

int RowTable::rowOf(const std::string& key) const {
    int row = 0;
    while (row < rowCount() &&
           (key.empty() || item(row, 0)->data(kKeyRole).toByteArray().toStdString() != key)) {
        ++row;
    }
    return row;
}

void RowTable::clearRows() {
    setRowCount(0);
}

std::string RowTable::cell(int row, std::size_t column) const {
    const QTableWidgetItem* found = item(row, static_cast<int>(column));
    return found == nullptr ? std::string() : found->data(kBytesRole).toByteArray().toStdString();
}

std::string RowTable::rowIndex(int row) const {
    const QTableWidgetItem* found = item(row, 0);
    return found == nullptr ? std::string()
                            : found->data(kRowIndexRole).toByteArray().toStdString();
}

int RowTable::selectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void RowTable::clearSelectionBeside(const QMouseEvent& event) {
    if (!indexAt(event.pos()).isValid()) {
        clearSelection();
        setCurrentIndex(QModelIndex());
    }
}

void RowTable::mouseReleaseEvent(QMouseEvent* event) {
    QTableWidget::mouseReleaseEvent(event);
    clearSelectionBeside(*event);
    if (event->button() == Qt::LeftButton && onClick) {
        onClick();
    }
}

void RowTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableWidget::mouseDoubleClickEvent(event);
    clearSelectionBeside(*event);
    if (event->button() == Qt::LeftButton && onDoubleClick) {
        onDoubleClick();
    }
}

} // namespace onudesk
