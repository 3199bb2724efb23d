// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// How the ONU tags frames twice, and the protocol identifier of its outer tags. One of the two is
// written at a time.
class TOnuSwichQinQ : public ConfigPage {
    Q_OBJECT
public:
    TOnuSwichQinQ(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    bool mayWrite() override;
};

} // namespace onudesk
