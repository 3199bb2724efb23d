// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <set>

namespace onudesk {

// What session parameters are called, in the list and in the dialog.
struct ComSessionMaps {
    ComSessionMaps();
    const ValueMap types;
    const ValueMap rates; // in ascending order
    const ValueMap parities;
    const ValueMap dataBits;
    const ValueMap stopBits;
};

// The serial ports of the ONU and the IP sessions that carry their data.
class TOnuComSession : public ListPage {
    Q_OBJECT
public:
    TOnuComSession(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ComSessionMaps& maps() const { return maps_; }
    // The ports that replies since the last refresh named without session.
    [[nodiscard]] const std::set<std::int64_t>& freeComIds() const { return freeComIds_; }

    // Makes a session on a free port, whatever row is selected; without free port it does nothing.
    void configBtnClick() override;

protected:
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;

private:
    const ComSessionMaps maps_;
    std::set<std::int64_t> freeComIds_;
};

class TOnuComSessionItem : public ItemDialog {
    Q_OBJECT
public:
    explicit TOnuComSessionItem(TOnuComSession& page);
};

} // namespace onudesk
