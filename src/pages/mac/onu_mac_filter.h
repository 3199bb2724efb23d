// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <string>

namespace onudesk {

// The MAC addresses whose frames the ONU drops. Entries are added and deleted, never changed.
class TOnuMacFilter : public ListPage {
    Q_OBJECT
public:
    TOnuMacFilter(Session& session, std::int32_t itemType, QWidget* parent);

    void configBtnClick() override; // adds
    void mainTableDblClick() override {}

protected:
    void showReply(const ReadResult& result) override;

private:
    bool listFull_ = false; // as the last row says
};

class TOnuMacFilterItem : public ItemDialog {
    Q_OBJECT
public:
    explicit TOnuMacFilterItem(TOnuMacFilter& page);

protected:
    [[nodiscard]] std::string instance() const override;

private:
    const Session& session_;
};

} // namespace onudesk
