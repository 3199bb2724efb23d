// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

namespace onudesk {

// Power over Ethernet (IEEE 802.3, clause 33) of the Ethernet ports.
class TOnuPortPoE : public ListPage {
    Q_OBJECT
public:
    TOnuPortPoE(Session& session, std::int32_t itemType, QWidget* parent);

    void configBtnClick() override;

protected:
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;

private:
    const ValueMap states_;
    const ValueMap modes_;
    bool poeUnsupported_ = false; // a row since the last refresh had a code that there is not
};

} // namespace onudesk
