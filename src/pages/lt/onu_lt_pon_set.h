// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <QComboBox>

namespace onudesk {

// Which of its two PON ports a line terminal works with.
class TOnuLTPonSet : public ConfigPage {
    Q_OBJECT
public:
    TOnuLTPonSet(Session& session, std::int32_t itemType, QWidget* parent);

    QComboBox* ponComb = nullptr; // disabled where there is nothing to choose

protected:
    [[nodiscard]] bool mayWrite() override { return ponComb->isEnabled(); }
    void showReply(const ReadResult& result) override;
};

} // namespace onudesk
