// SPDX-License-Identifier: MIT
#include "host/trace.h"

#include "base/hexadecimal.h"
#include "base/text.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace onudesk::host {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString kindName(RequestKind kind) {
    return kind == RequestKind::read ? QStringLiteral("read") : QStringLiteral("write");
}

QJsonArray texts(const std::vector<std::string>& list) {
    QJsonArray array;
    for (const std::string& element : list) {
        array.append(text(element));
    }
    return array;
}

QJsonObject bindingObject(const Binding& binding) {
    return {{QStringLiteral("name"), text(binding.name)},
            {QStringLiteral("oid"), text(binding.oid)},
            {QStringLiteral("type"), static_cast<qint64>(binding.type)},
            {QStringLiteral("text"), isText(binding.value) ? text(binding.value) : QString()},
            {QStringLiteral("hex"), text(hexDigits(binding.value))}};
}

} // namespace

QJsonObject traceObject(const RequestRecord& request) {
    QJsonArray bindings;
    for (const Binding& binding : request.bindings) {
        bindings.append(bindingObject(binding));
    }
    return {{QStringLiteral("dir"), QStringLiteral("request")},
            {QStringLiteral("kind"), kindName(request.kind)},
            {QStringLiteral("item"), request.itemType},
            {QStringLiteral("suffix"), text(request.suffix)},
            {QStringLiteral("bindings"), bindings}};
}

QJsonObject traceObject(const ReplyRecord& reply) {
    const QJsonObject error = {{QStringLiteral("status"), reply.error.status},
                               {QStringLiteral("index"), reply.error.index},
                               {QStringLiteral("text"), text(reply.error.text)}};
    return {{QStringLiteral("dir"), QStringLiteral("reply")},
            {QStringLiteral("kind"), kindName(reply.kind)},
            {QStringLiteral("item"), reply.itemType},
            {QStringLiteral("result"), text(reply.resultText)},
            {QStringLiteral("status"), static_cast<qint64>(reply.status)},
            {QStringLiteral("error"), error},
            {QStringLiteral("oids"), texts(reply.oids)},
            {QStringLiteral("values"), texts(reply.values)}};
}

QString traceLine(const QJsonObject& object) {
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace onudesk::host
