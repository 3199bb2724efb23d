// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <cstdint>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace onudesk {

// Dynamic bandwidth allocation. The upstream limits follow from the bandwidth profile and the
// bounds that the device reports with each read.
class TOnuDbaConfig : public ConfigPage {
    Q_OBJECT
public:
    TOnuDbaConfig(Session& session, std::int32_t itemType, QWidget* parent);

    QGroupBox* upGroup = nullptr;
    QGroupBox* downGroup = nullptr;
    QLabel* Label17 = nullptr;
    QComboBox* shapeActionComb = nullptr;
    QLineEdit* upFirEdt = nullptr;
    QLineEdit* downFirEdt = nullptr;

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    void prepareRefresh() override;
    void showReply(const ReadResult& result) override;

private:
    // Upper and lower ends of the upstream rates, kbps.
    struct Limits {
        std::int32_t firMaximum = 0;
        std::int32_t cirMaximum = 0;
        std::int32_t pirMinimum = 0;
        std::int32_t pirMaximum = 0;
    };

    void buildGroups();
    void applyProfile(const ReadResult& result);
    void showLimits();
    void limit(const char* control, int captionId, std::int32_t minimum, std::int32_t maximum);
    [[nodiscard]] bool ratesInOrder(const char* fir, const char* cir, const char* pir,
                                    int refusalId);
    // The number in an edit; false, with the operator told, when it is none.
    [[nodiscard]] bool rateOf(const char* control, std::int32_t& rate) const;

    Limits limits_;
};

} // namespace onudesk
