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

constexpr int kRowHeight = 22;
constexpr int kPaintMilliseconds = 50;
constexpr int kCellMargin = 12; // beside a text, both sides together
constexpr int kWidestColumn = 260;

std::string cellText(const Column& column, const std::string& value) {
    if (column.map != nullptr) {
        return column.map->textOf(value);
    }
    return column.show != nullptr ? column.show(value) : value;
}

} // namespace

RowTable::RowTable(QWidget* parent) : QTableWidget(parent), painting_(new QTimer(this)) {
    setObjectName(QStringLiteral("mainTable"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    painting_->setObjectName(QStringLiteral("PaintTimer"));
    painting_->setSingleShot(true);
    painting_->setInterval(kPaintMilliseconds);
    connect(painting_, &QTimer::timeout, this, &RowTable::paintNow);
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
    for (int column = 0; column < columnCount(); ++column) {
        const int titleWidth = horizontalHeader()->sectionSizeHint(column);
        setColumnWidth(column, std::max(columnWidth(column), titleWidth));
    }
}

void RowTable::widen(int column, const QString& text) {
    const int wanted = fontMetrics().horizontalAdvance(text) + kCellMargin;
    if (!isColumnHidden(column) && columnWidth(column) < std::min(wanted, kWidestColumn)) {
        setColumnWidth(column, std::min(wanted, kWidestColumn));
    }
}

int RowTable::putReply(const ReadResult& result) {
    const std::string oid = result.oids.empty() ? std::string() : result.oids.front();
    const std::string index = rowIndexOf(oid);
    std::string key = index;
    std::vector<std::string> cells;
    std::vector<std::string> values;
    cells.reserve(columns_.size());
    values.reserve(columns_.size());
    for (const Column& column : columns_) {
        values.push_back(column.position == kRowIndex   ? index
                         : column.position == kWholeOid ? oid
                                                        : valueAt(result, column.position));
        if (column.required && values.back().empty()) {
            return -1;
        }
        cells.push_back(cellText(column, values.back()));
        key = column.isKey ? cells.back() : key;
    }
    const int row = rowOf(key);
    if (row == rowCount()) {
        insertRow(row);
        rows_.resize(static_cast<std::size_t>(rowCount()));
        paintLater(row);
    }
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const QString text = shown(cells[at]);
        setItem(row, static_cast<int>(at), new QTableWidgetItem(text));
        widen(static_cast<int>(at), text);
    }
    rows_[static_cast<std::size_t>(row)] = {index, std::move(cells), std::move(values)};
    if (0 <= remembered_ && remembered_ < rowCount() && selectedRow() != remembered_) {
        selectRow(remembered_);
    }
    return row;
}

// A new row makes the table paint all that can be seen. Of a flood of rows, those below need not.
void RowTable::paintLater(int row) {
    if (row * kRowHeight > viewport()->height() && !painting_->isActive()) {
        viewport()->setUpdatesEnabled(false);
        painting_->start();
    }
}

void RowTable::paintNow() {
    painting_->stop();
    viewport()->setUpdatesEnabled(true);
}

int RowTable::rowOf(const std::string& key) {
    return key.empty() ? rowCount() : rowOfKey_.try_emplace(key, rowCount()).first->second;
}

void RowTable::clearRows() {
    rowOfKey_.clear();
    rows_.clear();
    setRowCount(0);
    paintNow();
}

const RowTable::Row* RowTable::find(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return 0 <= row && at < rows_.size() ? &rows_[at] : nullptr;
}

std::string RowTable::cell(int row, std::size_t column) const {
    const Row* found = find(row);
    return found == nullptr || column >= found->cells.size() ? std::string() : found->cells[column];
}

std::vector<std::string> RowTable::cells(int row) const {
    const Row* found = find(row);
    return found == nullptr ? std::vector<std::string>() : found->cells;
}

std::vector<std::string> RowTable::values(int row) const {
    const Row* found = find(row);
    return found == nullptr ? std::vector<std::string>() : found->values;
}

std::string RowTable::rowIndex(int row) const {
    const Row* found = find(row);
    return found == nullptr ? std::string() : found->index;
}

int RowTable::selectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

bool RowTable::isBeside(const QMouseEvent& event) const {
    return event.button() == Qt::LeftButton && !indexAt(event.pos()).isValid();
}

void RowTable::clearSelected() {
    clearSelection();
    setCurrentIndex(QModelIndex());
}

void RowTable::keyPressEvent(QKeyEvent* event) {
    const int before = selectedRow();
    QTableWidget::keyPressEvent(event);
    if (selectedRow() != before && onClick) {
        onClick();
    }
}

void RowTable::mousePressEvent(QMouseEvent* event) {
    QTableWidget::mousePressEvent(event);
    pressedBeside_ = isBeside(*event);
}

void RowTable::mouseReleaseEvent(QMouseEvent* event) {
    QTableWidget::mouseReleaseEvent(event);
    if (pressedBeside_ && isBeside(*event)) {
        clearSelected();
    }
    if (event->button() == Qt::LeftButton && onClick) {
        onClick();
    }
}

void RowTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableWidget::mouseDoubleClickEvent(event);
    if (isBeside(*event)) {
        clearSelected();
    }
    if (event->button() == Qt::LeftButton && onDoubleClick) {
        onDoubleClick();
    }
}

} // namespace onudesk
