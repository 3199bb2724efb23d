// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

namespace onudesk {

// What the ONU is and which interfaces it has; nothing to write.
class TOnuCapability2 : public ListPage {
    Q_OBJECT
public:
    TOnuCapability2(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;

private:
    // What the boxes say while no entry is selected.
    void nameUnselected(const QString& text);
};

} // namespace onudesk
