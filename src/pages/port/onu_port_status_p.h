// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>

namespace onudesk {

// State and settings of the one Ethernet port for which the window was opened.
class TOnuPortStatusP : public ConfigPage {
    Q_OBJECT
public:
    TOnuPortStatusP(Session& session, std::int32_t itemType, QWidget* parent);

    QLineEdit* IndexEdit = nullptr;
    QPlainTextEdit* noticeMemo = nullptr;

    // Leaves the buttons and the timer as they are.
    void configBtnClick() override;

protected:
    void bindWrite(WriteRequest& request) override;
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;

private:
    QStringList notices_; // since the last refresh
};

} // namespace onudesk
