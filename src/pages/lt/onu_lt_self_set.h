// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <QLineEdit>

namespace onudesk {

// When a line terminal starts, and below which voltage it raises an alarm.
class TOnuLTSelfSet : public ConfigPage {
    Q_OBJECT
public:
    TOnuLTSelfSet(Session& session, std::int32_t itemType, QWidget* parent);

    QLineEdit* hourEdit = nullptr;
    QLineEdit* minuteEdit = nullptr;
    QLineEdit* secondsEdit = nullptr;
    QLineEdit* gateEdit = nullptr;

protected:
    void bindWrite(WriteRequest& request) override;
    void showReply(const ReadResult& result) override;
};

} // namespace onudesk
