// SPDX-License-Identifier: MIT
#include "host/secret_mask.h"

#include "host/snmp_value.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace onudesk::host {

namespace {

const QString kMask = QStringLiteral("•••");
const QString kError = QStringLiteral("error");
const QString kText = QStringLiteral("text");
const QString kValues = QStringLiteral("values");
const QString kBindings = QStringLiteral("bindings");
// What a binding says of its value.
const QString kValueKeys[] = {kText, QStringLiteral("hex")};

QJsonValue masked(const QJsonValue& value, const QStringList& secrets) {
    return secrets.contains(value.toString(), Qt::CaseInsensitive) ? QJsonValue(kMask) : value;
}

} // namespace

std::vector<std::string> secretsOf(const std::string& readCommunity,
                                   const std::string& writeCommunity, const V3Access& v3) {
    return {readCommunity, writeCommunity, v3.authPassphrase, v3.privPassphrase};
}

SecretMask::SecretMask(const std::vector<std::string>& secrets) {
    for (const std::string& secret : secrets) {
        if (!secret.empty()) {
            secrets_ << QString::fromStdString(secret) << QString::fromStdString(hexDigits(secret));
        }
    }
}

QString SecretMask::applyToText(const QString& text) const {
    QString masked = text;
    for (const QString& secret : secrets_) {
        masked.replace(secret, kMask, Qt::CaseInsensitive);
    }
    return masked;
}

QString SecretMask::apply(const std::string& traceLine) const {
    QJsonObject line = QJsonDocument::fromJson(QByteArray::fromStdString(traceLine)).object();
    if (line.contains(kError)) {
        QJsonObject error = line.value(kError).toObject();
        error.insert(kText, applyToText(error.value(kText).toString()));
        line.insert(kError, error);
    }
    if (line.contains(kValues)) {
        QJsonArray values;
        for (const QJsonValue value : line.value(kValues).toArray()) {
            values.append(masked(value, secrets_));
        }
        line.insert(kValues, values);
    }
    if (line.contains(kBindings)) {
        QJsonArray bindings;
        for (const QJsonValue binding : line.value(kBindings).toArray()) {
            QJsonObject object = binding.toObject();
            for (const QString& key : kValueKeys) {
                object.insert(key, masked(object.value(key), secrets_));
            }
            bindings.append(object);
        }
        line.insert(kBindings, bindings);
    }
    return QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact));
}

} // namespace onudesk::host
