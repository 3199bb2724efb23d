// SPDX-License-Identifier: MIT
#include "pages/framework/port_list_page.h"

#include "env/language_module.h"
#include "window/request.h"

#include <algorithm>
#include <utility>

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr std::int64_t kMostPorts = 255; // no ONU has more, whatever its reply says
constexpr int kPortWidth = 80;

} // namespace

PortListPage::PortListPage(Session& session, std::int32_t itemType, PageRules rules,
                           PortRules ports, QWidget* parent)
    : ListPage(session, itemType, std::move(rules), parent), ports_(ports) {
    auto* area = new QWidget(listPanel);
    area->lower(); // before the table in the order of tabs, too
    auto* label = new QLabel(area);
    label->setObjectName(QStringLiteral("portCombLabel"));
    portComb = new QComboBox(area);
    portComb->setObjectName(QStringLiteral("portComb"));
    portComb->setAccessibleName(shown(messageText(message::portNumber)));
    portComb->setMinimumWidth(kPortWidth);
    label->setBuddy(portComb);
    setCaption(*label, message::portNumber);
    connect(portComb, &QComboBox::activated, this, &PortListPage::portCombChange);
    auto* row = new QHBoxLayout(area);
    row->addWidget(label);
    row->addWidget(portComb);
    row->addStretch();
    static_cast<QVBoxLayout*>(listPanel->layout())->insertWidget(0, area);
}

std::string PortListPage::port() const {
    return bytesOf(portComb->currentText());
}

void PortListPage::prepareRefresh() {
    ListPage::prepareRefresh();
    setPortSegment(session(), port());
}

void PortListPage::rowArrived(int /*row*/, const ReadResult& result) {
    if (portComb->count() == 0) {
        fillPorts(valueAt(result, ports_.countPosition));
    }
}

void PortListPage::fillPorts(const std::string& count) {
    const std::int64_t last = std::min(leadingNumber(count).value_or(0), kMostPorts);
    const QSignalBlocker quiet(portComb);
    for (std::int64_t number = 1; number <= last; ++number) {
        portComb->addItem(QString::number(number));
    }
}

} // namespace onudesk
