// SPDX-License-Identifier: MIT
#include "host/trace.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace onudesk::host::test {

namespace {

QJsonDocument parsed(const std::string& text) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(text));
}

} // namespace

TEST(TraceTest, RequestLine) {
    const RequestRecord request{
        .kind = RequestKind::write,
        .itemType = 606,
        .suffix = {},
        .bindings = {{"onuName", "1.3.6.1", 4, "caf\xC3\xA9"},
                     {"onuBindMac", "1.3.6.2", 4, std::string("\0\x1A\x2B", 3)}}};
    const QString line = traceLine(traceObject(request));
    EXPECT_FALSE(line.contains(QLatin1Char('\n')));
    EXPECT_EQ(parsed(line.toStdString()),
              parsed(R"({"dir":"request","kind":"write","item":606,"suffix":"",
        "bindings":[{"name":"onuName","oid":"1.3.6.1","type":4,"text":"café","hex":"636166C3A9"},
                    {"name":"onuBindMac","oid":"1.3.6.2","type":4,"text":"","hex":"001A2B"}]})"));
}

TEST(TraceTest, ReplyLine) {
    ReplyRecord reply;
    reply.kind = RequestKind::write;
    reply.itemType = 606;
    reply.resultText = "maintable";
    reply.status = 1;
    reply.error = {.status = -5, .index = 2, .text = "time-out: no answer"};
    reply.oids = {"1.3.6.1", "1.3.6.2"};
    reply.values = {"quoted \"text\"", ""};
    EXPECT_EQ(QJsonDocument(traceObject(reply)),
              parsed(R"({"dir":"reply","kind":"write","item":606,"result":"maintable","status":1,
        "error":{"status":-5,"index":2,"text":"time-out: no answer"},
        "oids":["1.3.6.1","1.3.6.2"],"values":["quoted \"text\"",""]})"));
}

} // namespace onudesk::host::test
