// SPDX-License-Identifier: MIT
#pragma once

#include "host/access.h"

#include <string>
#include <vector>

#include <QString>
#include <QStringList>

namespace onudesk::host {

// The communities and pass phrases of an access.
[[nodiscard]] std::vector<std::string>
secretsOf(const std::string& readCommunity, const std::string& writeCommunity, const V3Access& v3);

// Keeps secrets out of the trace. Immutable: any thread.
class SecretMask {
public:
    // Empty texts are no secrets.
    explicit SecretMask(const std::vector<std::string>& secrets);

    // A line of traceLine() in which every value that equals a secret, as text or in hexadecimal
    // digits, is replaced by "•••"; in error texts every place where one stands.
    [[nodiscard]] QString apply(const std::string& traceLine) const;
    // The text with "•••" wherever a secret stands.
    [[nodiscard]] QString applyToText(const QString& text) const;

private:
    QStringList secrets_; // as texts and as digits
};

} // namespace onudesk::host
