// SPDX-License-Identifier: MIT
#include "host/secret_mask.h"

#include "base/hexadecimal.h"
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

// The record's line, masked.
template <typename Record>
std::string masked(const Record& record, const AccessProfile& profile = everySecret()) {
    const host::SecretMask mask(
        host::secretsOf(profile.readCommunity, profile.writeCommunity, profile.v3));
    return host::traceLine(mask.apply(host::traceObject(record))).toStdString();
}

bool contains(const std::string& line, std::string_view text) {
    return line.find(text) != std::string::npos;
}

host::ReplyRecord replyWith(std::vector<std::string> values) {
    host::ReplyRecord reply;
    reply.itemType = 606;
    reply.values = std::move(values);
    return reply;
}

TEST(SecretMask, HidesSecretsInRepliesAsTextAndAsDigits) {
    const std::string line =
        masked(replyWith({"eight888", "private8", hexDigits("eight888"), "other", "eight888 "}));
    EXPECT_TRUE(contains(line, R"(["•••","•••","•••","other","eight888 "])")) << line;
}

TEST(SecretMask, HidesBothFormsOfABindingsValue) {
    host::RequestRecord request;
    request.kind = host::RequestKind::write;
    request.bindings = {{.name = "onuName", .oid = "1.3", .type = 4, .value = "private8"},
                        {.name = "onuMode", .oid = "1.4", .type = 4, .value = "open"}};
    const std::string line = masked(request);
    EXPECT_FALSE(contains(line, "private8") || contains(line, hexDigits("private8"))) << line;
    EXPECT_TRUE(contains(line, R"("onuName")") && contains(line, R"("open")")) << line;
}

TEST(SecretMask, HidesTheValuesOfSecretObjectsWhateverTheyAre) {
    const host::SecretMask mask({}, {"1.3.6.7"});
    host::ReplyRecord reply = replyWith({"open", "hidden", "behind", ""});
    reply.oids = {"1.3.6.70.1.2.5", "1.3.6.7.1.2.5", "1.3.6.8.1.2.5"}; // a value without an OID
    EXPECT_TRUE(host::traceLine(mask.apply(host::traceObject(reply)))
                    .contains(QStringLiteral("[\"open\",\"•••\",\"behind\",\"\"]")));
    host::RequestRecord request;
    request.kind = host::RequestKind::write;
    request.bindings = {{.name = "a", .oid = "1.3.6.7.1.2.5", .type = 4, .value = "hidden"}};
    const QString line = host::traceLine(mask.apply(host::traceObject(request)));
    EXPECT_FALSE(line.contains(QStringLiteral("hidden"))) << line.toStdString();
    EXPECT_FALSE(line.contains(QString::fromStdString(hexDigits("hidden"))));
}

TEST(SecretMask, TouchesNothingButValues) {
    // The communities equal the kind, and the item as text.
    host::ReplyRecord reply = replyWith({"1"});
    reply.resultText = "read";
    reply.oids = {"1.3.606"};
    EXPECT_EQ(masked(reply), host::traceLine(host::traceObject(reply)).toStdString());
}

TEST(SecretMask, HidesSecretsInsideErrorTexts) {
    host::ReplyRecord reply = replyWith({});
    reply.error = {.status = 10, .index = 1, .text = "wrongValue: \"private8\" is no number"};
    EXPECT_TRUE(contains(masked(reply), R"(wrongValue: \"•••\" is no number)")) << masked(reply);
    EXPECT_EQ(host::SecretMask({"private8"}).applyToText(QStringLiteral("Item 1: private8")),
              QStringLiteral("Item 1: •••"));
}

TEST(SecretMask, EmptySecretsHideNoEmptyValues) {
    const std::string line = masked(replyWith({"", "look"}), test::communityProfile());
    EXPECT_TRUE(contains(line, R"("values":["","•••"])")) << line;
}

} // namespace

} // namespace onudesk::desk
