// SPDX-License-Identifier: MIT
#include "desk/onu_table.h"

#include <QHeaderView>
#include <QRegularExpression>

namespace onudesk::desk {

namespace {

struct Column {
    const char* title;
    std::string OnuEntry::*text;
    int width; // characters
};
constexpr Column kColumns[] = {{QT_TR_NOOP("Name"), &OnuEntry::name, 28},
                               {QT_TR_NOOP("Agent"), &OnuEntry::agent, 25},
                               {QT_TR_NOOP("ONU"), &OnuEntry::onu, 14},
                               {QT_TR_NOOP("Menu file"), &OnuEntry::menuFile, 34},
                               {QT_TR_NOOP("Access profile"), &OnuEntry::profile, 18}};
constexpr int kDigits = 10;

// Numbers brought to one length.
QString sortKey(const QString& text) {
    static const QRegularExpression number(QStringLiteral("\\d+"));
    QString key;
    qsizetype end = 0;
    for (auto found = number.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        key += text.mid(end, match.capturedStart() - end) +
               match.captured().rightJustified(kDigits, QLatin1Char('0'));
        end = match.capturedEnd();
    }
    return key + text.mid(end);
}

class Cell : public QTableWidgetItem {
public:
    explicit Cell(const QString& text) : QTableWidgetItem(text), key_(sortKey(text)) {}

    bool operator<(const QTableWidgetItem& other) const override {
        return key_.localeAwareCompare(static_cast<const Cell&>(other).key_) < 0;
    }

private:
    QString key_;
};

} // namespace

OnuTable::OnuTable(QWidget* parent)
    : QTableWidget(0, static_cast<int>(std::size(kColumns)), parent) {
    setObjectName(QStringLiteral("onuTable"));
    setAccessibleName(tr("ONUs"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QStringList titles;
    for (const Column& column : kColumns) {
        setColumnWidth(static_cast<int>(titles.size()),
                       fontMetrics().averageCharWidth() * column.width);
        titles << tr(column.title);
    }
    setHorizontalHeaderLabels(titles);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
}

void OnuTable::fill(const Inventory::Onus& onus, const std::string& selected) {
    // Sorting while rows are filled would move them about.
    setSortingEnabled(false);
    setRowCount(static_cast<int>(onus.size()));
    int row = 0;
    QTableWidgetItem* current = nullptr;
    for (const auto& [name, onu] : onus) {
        for (int column = 0; column < columnCount(); ++column) {
            const std::string& text = onu.*kColumns[static_cast<std::size_t>(column)].text;
            auto* cell = new Cell(QString::fromStdString(text));
            cell->setToolTip(cell->text().toHtmlEscaped());
            setItem(row, column, cell);
        }
        current = name == selected ? item(row, 0) : current;
        ++row;
    }
    setSortingEnabled(true);
    setCurrentItem(current != nullptr ? current : item(0, 0));
}

std::string OnuTable::selectedName() const {
    const QTableWidgetItem* name = currentRow() < 0 ? nullptr : item(currentRow(), 0);
    return name == nullptr ? std::string() : name->text().toStdString();
}

} // namespace onudesk::desk
