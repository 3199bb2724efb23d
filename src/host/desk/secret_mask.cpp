// SPDX-License-Identifier: MIT
#include "host/desk/secret_mask.h"

#include "host/snmp_value.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace onudesk::desk {

namespace {

const QString kValues = QStringLiteral("values");
const QString kBindings = QStringLiteral("bindings");
// What a binding says of its value.
const QString kValueKeys[] = {QStringLiteral("text"), QStringLiteral("hex")};

QJsonValue masked(const QJsonValue& value, const QStringList& secrets) {
    return secrets.contains(value.toString(), Qt::CaseInsensitive)
               ? QJsonValue(QStringLiteral("•••"))
               : value;
}

} // namespace

SecretMask::SecretMask(const AccessProfile& profile) {
    for (const std::string& secret : {profile.readCommunity, profile.writeCommunity,
                                      profile.v3.authPassphrase, profile.v3.privPassphrase}) {
        if (!secret.empty()) {
            secrets_ << QString::fromStdString(secret)
                     << QString::fromStdString(host::hexDigits(secret));
        }
    }
}

QString SecretMask::apply(const std::string& traceLine) const {
    QJsonObject line = QJsonDocument::fromJson(QByteArray::fromStdString(traceLine)).object();
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

} // namespace onudesk::desk
