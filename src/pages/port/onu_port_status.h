// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

#include <QPoint>

namespace onudesk {

// State and settings of all Ethernet ports.
class TOnuPortStatus : public ListPage {
    Q_OBJECT
public:
    TOnuPortStatus(Session& session, std::int32_t itemType, QWidget* parent);

    // Makes what the port under the mouse advertises the table's hint.
    void mainTableMouseMove(const QPoint& position);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace onudesk
