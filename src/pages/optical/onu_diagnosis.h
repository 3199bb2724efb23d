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
    bool mayShow(const ReadResult& result) override;

private:
    void buildReadings();
};

} // namespace onudesk
