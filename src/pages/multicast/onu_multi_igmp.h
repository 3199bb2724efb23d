// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <optional>
#include <set>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace onudesk {

// How many multicast groups each Ethernet port may receive, and in which VLANs. The ONU can lock
// these limits.
class TOnuMultiIGMP : public ListPage {
    Q_OBJECT
public:
    TOnuMultiIGMP(Session& session, std::int32_t itemType, QWidget* parent);

    void configBtnClick() override;

private:
    bool locked_ = false;
};

// Writes the port's maximum, or adds VLANs to its list or takes some out.
class TOnuMultiIGMPItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuMultiIGMPItem(TOnuMultiIGMP& page, int row);

    QPushButton* deleteBtn = nullptr;

    void deleteBtnClick();

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;

private:
    // The VLANs of the memo; nothing after telling what is wrong with them.
    [[nodiscard]] std::optional<std::set<int>> typedVlans() const;

    TOnuMultiIGMP& page_;
    QLineEdit* maxGroupEdit_;
    QRadioButton* vlanlistRabtn_;
    QPlainTextEdit* vlanlistMemo_;
    const std::set<int> listed_; // the port's VLANs
};

} // namespace onudesk
