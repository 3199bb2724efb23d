// SPDX-License-Identifier: MIT
//
// What onuctl prints of a window, as text or as JSON (RFC 8259).
#pragma once

#include "ctl/control_snapshot.h"
#include "platform/prompter.h"

#include <cstdint>
#include <string>
#include <vector>

#include <QJsonObject>
#include <QString>

class QDialog;
class QWidget;

namespace onudesk::ctl {

// "none", "information" or "warning".
[[nodiscard]] QString iconName(platform::PromptIcon icon);

struct PageReport {
    std::int32_t itemType = 0;
    QString caption;
    const QWidget* page = nullptr; // not null
    std::vector<QDialog*> dialogs; // open before it
};

[[nodiscard]] QJsonObject pageJson(const PageReport& report,
                                   const std::vector<platform::Prompt>& boxes);
[[nodiscard]] std::string pageText(const PageReport& report);

[[nodiscard]] QJsonObject controlJson(const ControlSnapshot& control);

[[nodiscard]] QJsonObject boxJson(const platform::Prompt& box);
[[nodiscard]] std::string boxText(const platform::Prompt& box);

// A write request as the trace shows it.
[[nodiscard]] std::string writeText(const QJsonObject& request);

// On one line, with a line break.
[[nodiscard]] std::string jsonLine(const QJsonObject& object);

} // namespace onudesk::ctl
