// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"
#include "pages/port/port_maps.h"

#include <QPoint>

namespace onudesk {

// State and settings of all Ethernet ports.
class TOnuPortStatus : public ListPage {
    Q_OBJECT
public:
    TOnuPortStatus(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const PortMaps& maps() const { return maps_; }

    // Makes what the port under the mouse advertises the table's hint.
    void mainTableMouseMove(const QPoint& position);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void openRow(int row) override;

private:
    const PortMaps maps_;
};

// Writes the one setting that is chosen.
class TOnuPortStatusItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuPortStatusItem(TOnuPortStatus& page, int row);
};

} // namespace onudesk
