// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <cstdint>
#include <string>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace onudesk {

// Identity and capabilities of the ONU, its name, and the MAC address it is bound to. A MAC is
// bound in two writes: the first sends the address, the next activates the binding row.
class TOnuBasic : public ConfigPage {
    Q_OBJECT
public:
    TOnuBasic(Session& session, std::int32_t itemType, QWidget* parent);

    QLineEdit* llidEdt = nullptr;
    QLineEdit* nameEdit = nullptr;
    QLineEdit* macEdit = nullptr; // masked, six pairs of characters
    QPushButton* nameBtn = nullptr;
    QPushButton* macBtn = nullptr;
    QComboBox* authValidComb = nullptr;
    QLabel* authValidLabel = nullptr;

    void nameBtnClick();
    void macBtnClick();

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    void showReply(const ReadResult& result) override;

private:
    void buildIdentity(QWidget& group);
    void showMac(const ReadResult& result);
    void showName(const ReadResult& result);
    void refusePendingBind(const ReadResult& result);
    // Whether Config sends the address, and does not only activate it.
    [[nodiscard]] bool bindsAddress() const;

    bool bindPending_ = false;
};

} // namespace onudesk
