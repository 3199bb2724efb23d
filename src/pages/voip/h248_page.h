// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/voice_page.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace onudesk {

// A page that shows and writes nothing while the voice module runs SIP.
class H248Page : public VoicePage {
    Q_OBJECT
public:
    // `protocol` is the position of the protocol's code, in replies of at least so many values that
    // there is one.
    H248Page(Session& session, std::int32_t itemType, PageRules rules, std::string rowStatus,
             std::size_t protocol, QWidget* parent);

protected:
    void showReply(const ReadResult& result) override;
    bool mayWrite() override;
    bool mayDelete() override { return takesH248(); }
    // Whether the voice module runs H.248; if not, the operator is told.
    [[nodiscard]] bool takesH248();

private:
    [[nodiscard]] bool runsH248() const;

    const std::size_t protocol_;
    std::string lastVoiceProtocol_ = "255"; // unknown, which counts as H.248
};

// Bounds of a number that may not be left empty: then it only takes the focus.
[[nodiscard]] FieldCheck needed(std::int64_t minimum, std::int64_t maximum);

} // namespace onudesk
