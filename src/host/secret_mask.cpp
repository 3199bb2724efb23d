// SPDX-License-Identifier: MIT
#include "host/secret_mask.h"

#include "base/hexadecimal.h"

#include <algorithm>

#include <QJsonArray>

namespace onudesk::host {

namespace {

const QString kMask = QStringLiteral("•••");
const QString kError = QStringLiteral("error");
const QString kText = QStringLiteral("text");
const QString kOids = QStringLiteral("oids");
const QString kOid = QStringLiteral("oid"); // of a binding
const QString kValues = QStringLiteral("values");
const QString kBindings = QStringLiteral("bindings");
// What a binding says of its value.
const QString kValueKeys[] = {kText, QStringLiteral("hex")};

} // namespace

std::vector<std::string> secretsOf(const std::string& readCommunity,
                                   const std::string& writeCommunity, const V3Access& v3) {
    return {readCommunity, writeCommunity, v3.authPassphrase, v3.privPassphrase};
}

SecretMask::SecretMask(const std::vector<std::string>& secrets,
                       const std::vector<std::string>& objects) {
    for (const std::string& oid : objects) {
        objects_ << QString::fromStdString(oid) + QLatin1Char('.');
    }
    for (const std::string& secret : secrets) {
        if (!secret.empty()) {
            secrets_ << QString::fromStdString(secret) << QString::fromStdString(hexDigits(secret));
        }
    }
}

QJsonValue SecretMask::masked(const QJsonValue& value, const QString& oid) const {
    const bool isSecret = secrets_.contains(value.toString(), Qt::CaseInsensitive) ||
                          std::ranges::any_of(objects_, [&](const QString& object) {
                              return oid.startsWith(object);
                          });
    return isSecret ? QJsonValue(kMask) : value;
}

QString SecretMask::applyToText(const QString& text) const {
    QString masked = text;
    for (const QString& secret : secrets_) {
        masked.replace(secret, kMask, Qt::CaseInsensitive);
    }
    return masked;
}

QJsonObject SecretMask::apply(QJsonObject trace) const {
    if (trace.contains(kError)) {
        QJsonObject error = trace.value(kError).toObject();
        error.insert(kText, applyToText(error.value(kText).toString()));
        trace.insert(kError, error);
    }
    if (trace.contains(kValues)) {
        const QJsonArray oids = trace.value(kOids).toArray();
        QJsonArray values = trace.value(kValues).toArray();
        for (qsizetype position = 0; position < values.size(); ++position) {
            values[position] = masked(values[position], oids[position].toString());
        }
        trace.insert(kValues, values);
    }
    if (trace.contains(kBindings)) {
        QJsonArray bindings;
        for (const QJsonValue binding : trace.value(kBindings).toArray()) {
            QJsonObject object = binding.toObject();
            for (const QString& key : kValueKeys) {
                object.insert(key, masked(object.value(key), object.value(kOid).toString()));
            }
            bindings.append(object);
        }
        trace.insert(kBindings, bindings);
    }
    return trace;
}

} // namespace onudesk::host
