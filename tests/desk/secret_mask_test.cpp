// SPDX-License-Identifier: MIT
#include "host/secret_mask.h"

#include "host/snmp_value.h"
#include "host/trace.h"
#include "sample_entries.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

AccessProfile everySecret() {
    AccessProfile profile = test::v3Profile();
    profile.readCommunity = "read";
    profile.writeCommunity = "606";
    return profile;
}

host::SecretMask maskOf(const AccessProfile& profile) {
    return host::SecretMask(
        host::secretsOf(profile.readCommunity, profile.writeCommunity, profile.v3));
}

host::ReplyRecord replyWith(std::vector<std::string> values) {
    host::ReplyRecord reply;
    reply.itemType = 606;
    reply.values = std::move(values);
    return reply;
}

TEST(SecretMask, HidesSecretsInRepliesAsTextAndAsDigits) {
    const std::string line = host::traceLine(
        replyWith({"eight888", "private8", host::hexDigits("eight888"), "other", "eight888 "}));
    const QString masked = maskOf(everySecret()).apply(line);
    EXPECT_TRUE(
        masked.contains(QStringLiteral("[\"•••\",\"•••\",\"•••\",\"other\",\"eight888 \"]")))
        << masked.toStdString();
}

TEST(SecretMask, HidesBothFormsOfABindingsValue) {
    host::RequestRecord request;
    request.kind = host::RequestKind::write;
    request.bindings = {{.name = "onuName", .oid = "1.3", .type = 4, .value = "private8"},
                        {.name = "onuMode", .oid = "1.4", .type = 4, .value = "open"}};
    const QString line = maskOf(everySecret()).apply(host::traceLine(request));
    EXPECT_FALSE(line.contains(QStringLiteral("private8"))) << line.toStdString();
    EXPECT_FALSE(line.contains(QString::fromStdString(host::hexDigits("private8"))));
    EXPECT_TRUE(line.contains(QStringLiteral("\"onuName\"")));
    EXPECT_TRUE(line.contains(QStringLiteral("\"open\"")));
}

TEST(SecretMask, TouchesNothingButValues) {
    // The communities equal the kind, and the item as text.
    host::ReplyRecord reply = replyWith({"1"});
    reply.resultText = "read";
    reply.oids = {"1.3.606"};
    const std::string line = host::traceLine(reply);
    EXPECT_EQ(maskOf(everySecret()).apply(line).toStdString(), line);
}

TEST(SecretMask, HidesSecretsInsideErrorTexts) {
    host::ReplyRecord reply = replyWith({});
    reply.error = {.status = 10, .index = 1, .text = "wrongValue: \"private8\" is no number"};
    const QString line = maskOf(everySecret()).apply(host::traceLine(reply));
    EXPECT_TRUE(line.contains(QStringLiteral("wrongValue: \\\"•••\\\" is no number")))
        << line.toStdString();
    EXPECT_EQ(maskOf(everySecret()).applyToText(QStringLiteral("Item 1: private8")),
              QStringLiteral("Item 1: •••"));
}

TEST(SecretMask, EmptySecretsHideNoEmptyValues) {
    const std::string line = host::traceLine(replyWith({"", "look"}));
    const QString masked = maskOf(test::communityProfile()).apply(line);
    EXPECT_TRUE(masked.contains(QStringLiteral("\"values\":[\"\",\"•••\"]")))
        << masked.toStdString();
}

} // namespace

} // namespace onudesk::desk
