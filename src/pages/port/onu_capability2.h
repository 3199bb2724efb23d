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
    void fillPage(const ReadResult& result) override;
    void otherReply(const ReadResult& result) override;

private:
    // What the boxes say while no entry is selected.
    void nameUnselected(const QString& text);

    const ValueMap types_;
    const ValueMap protection_;
    const ValueMap batteries_;
    const ValueMap interfaces_;
};

} // namespace onudesk
