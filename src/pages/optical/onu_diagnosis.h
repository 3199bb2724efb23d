// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// The readings of the optical module.
class TOnuDiagnosis : public ConfigPage {
    Q_OBJECT
public:
    TOnuDiagnosis(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void showReply(const ReadResult& result) override;
};

} // namespace onudesk
