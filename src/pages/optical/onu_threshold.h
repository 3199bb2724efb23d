// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <string>

namespace onudesk {

// The thresholds at which the ONU warns of its optical module. An ONU that does not have its row of
// thresholds yet gets it after the first write, whose values are lost.
class TOnuThreshold : public ConfigPage {
    Q_OBJECT
public:
    TOnuThreshold(Session& session, std::int32_t itemType, QWidget* parent);

    void configBtnClick() override;

protected:
    void handleReply(const ReadResult& result) override;
    void showReply(const ReadResult& result) override;
    // Only reads again: what became of the write shows in its reply.
    void handleWriteReply(void* reply) override;

private:
    // Ends the sequence of writes by the state of the row; false when the values are not shown.
    [[nodiscard]] bool mayShow(const ReadResult& result);
    // Thresholds of ticked rows, but for blank ones. Returns how many there are.
    int bindThresholds(WriteRequest& request);
    void endSequence();

    bool thresholdRowPending_ = false; // a write is out; a further one makes the row
    std::string pendingOnuText_;       // number of the ONU that was written
};

} // namespace onudesk
