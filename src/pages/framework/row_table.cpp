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
    if (!column.codes.empty()) {
        return column.codes.textOf(value);
    }
    return column.show ? column.show(value) : value;
}

} // namespace

Column instanceColumn(std::string prefix) {
    return {.position = kWholeOid,
            .show = [prefix = std::move(prefix)](
                        const std::string& oid) { return instanceBelow(prefix, oid); },
            .hidden = true};
}

void RowModel::setColumns(std::vector<Column> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    rows_.clear();
    rowOfKey_.clear();
    endResetModel();
}

int RowModel::put(Row row, const std::string& key) {
    const int count = rowCount();
    const int at = key.empty() ? count : rowOfKey_.try_emplace(key, count).first->second;
    if (at == count) {
        beginInsertRows({}, at, at);
        rows_.push_back(std::move(row));
        endInsertRows();
    } else {
        rows_[static_cast<std::size_t>(at)] = std::move(row);
        Q_EMIT dataChanged(index(at, 0), index(at, columnCount() - 1));
    }
    return at;
}

void RowModel::clear() {
    rowOfKey_.clear();
    if (!rows_.empty()) {
        beginRemoveRows({}, 0, rowCount() - 1);
        rows_.clear();
        endRemoveRows();
    }
}

const RowModel::Row* RowModel::find(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return 0 <= row && at < rows_.size() ? &rows_[at] : nullptr;
}

std::string RowModel::cell(const Row& row, std::size_t column) const {
    return column < columns_.size() ? cellText(columns_[column], row.values[column])
                                    : std::string();
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    const Row* row = find(index.row());
    return role == Qt::DisplayRole && row != nullptr
               ? shown(cell(*row, static_cast<std::size_t>(index.column())))
               : QVariant();
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto at = static_cast<std::size_t>(section);
    return role == Qt::DisplayRole && orientation == Qt::Horizontal && at < columns_.size()
               ? shown(messageText(columns_[at].titleId))
               : QVariant();
}

RowTable::RowTable(QWidget* parent) : QTableView(parent), painting_(new QTimer(this)) {
    setObjectName(QStringLiteral("mainTable"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    setModel(&model_);
    painting_->setObjectName(QStringLiteral("PaintTimer"));
    painting_->setSingleShot(true);
    painting_->setInterval(kPaintMilliseconds);
    connect(painting_, &QTimer::timeout, this, &RowTable::paintNow);
}

void RowTable::setColumns(std::vector<Column> columns) {
    model_.setColumns(std::move(columns));
    for (int column = 0; column < model_.columnCount(); ++column) {
        setColumnHidden(column, this->columns()[static_cast<std::size_t>(column)].hidden);
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
    RowModel::Row row{rowIndexOf(oid), {}};
    row.values.reserve(columns().size());
    std::string key = row.index;
    for (const Column& column : columns()) {
        row.values.push_back(column.position == kRowIndex   ? row.index
                             : column.position == kWholeOid ? oid
                                                            : valueAt(result, column.position));
        if (column.required && row.values.back().empty()) {
            return -1;
        }
        key = column.isKey ? cellText(column, row.values.back()) : key;
    }
    const int count = rowCount();
    const int at = model_.put(std::move(row), key);
    if (at == count) {
        paintLater(at);
    }
    for (int column = 0; column < model_.columnCount(); ++column) {
        widen(column, model_.index(at, column).data().toString());
    }
    if (0 <= remembered_ && remembered_ < rowCount() && selectedRow() != remembered_) {
        selectRow(remembered_);
    }
    return at;
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

void RowTable::clearRows() {
    model_.clear();
    paintNow();
}

std::string RowTable::cell(int row, std::size_t column) const {
    const RowModel::Row* found = model_.find(row);
    return found == nullptr ? std::string() : model_.cell(*found, column);
}

std::vector<std::string> RowTable::cells(int row) const {
    const RowModel::Row* found = model_.find(row);
    std::vector<std::string> cells;
    for (std::size_t column = 0; found != nullptr && column < columns().size(); ++column) {
        cells.push_back(model_.cell(*found, column));
    }
    return cells;
}

std::vector<std::string> RowTable::values(int row) const {
    const RowModel::Row* found = model_.find(row);
    return found == nullptr ? std::vector<std::string>() : found->values;
}

std::string RowTable::rowIndex(int row) const {
    const RowModel::Row* found = model_.find(row);
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
    QTableView::keyPressEvent(event);
    if (selectedRow() != before && onClick) {
        onClick();
    }
}

void RowTable::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    pressedBeside_ = isBeside(*event);
}

void RowTable::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    if (pressedBeside_ && isBeside(*event)) {
        clearSelected();
    }
    if (event->button() == Qt::LeftButton && onClick) {
        onClick();
    }
}

void RowTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (isBeside(*event)) {
        clearSelected();
    }
    if (event->button() == Qt::LeftButton && onDoubleClick) {
        onDoubleClick();
    }
}

} // namespace onudesk
