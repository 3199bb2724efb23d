// SPDX-License-Identifier: MIT
#pragma once

#include "host/access.h"

#include <string>
#include <vector>

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace onudesk::host {

// The communities and pass phrases of an access.
[[nodiscard]] std::vector<std::string>
secretsOf(const std::string& readCommunity, const std::string& writeCommunity, const V3Access& v3);

// Keeps secrets out of the trace. Immutable: any thread.
class SecretMask {
public:
    // Empty texts are no secrets. `objects` are OIDs without instance.
    explicit SecretMask(const std::vector<std::string>& secrets,
                        const std::vector<std::string>& objects = {});

    // What traceObject() made, in which every value that equals a secret, as text or in hexadecimal
    // digits, and every value of a secret object is replaced by "•••"; in error texts every place
    // where a secret stands.
    [[nodiscard]] QJsonObject apply(QJsonObject trace) const;
    // The text with "•••" wherever a secret stands.
    [[nodiscard]] QString applyToText(const QString& text) const;

private:
    [[nodiscard]] QJsonValue masked(const QJsonValue& value, const QString& oid) const;

    QStringList secrets_; // as texts and as digits
    QStringList objects_; // as OIDs ending in "."
};

} // namespace onudesk::host
