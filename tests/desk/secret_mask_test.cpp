// SPDX-License-Identifier: MIT
#include "host/secret_mask.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace onudesk::host {

namespace {

QJsonObject object(const char* json) {
    const QJsonObject parsed = QJsonDocument::fromJson(json).object();
    EXPECT_FALSE(parsed.isEmpty()) << json;
    return parsed;
}

TEST(SecretMask, HidesTheValuesOfSecretsAndSecretObjectsAndNothingElse) {
    V3Access v3;
    v3.authPassphrase = "eight888";
    v3.privPassphrase = "private8";
    const SecretMask mask(secretsOf("read", "606", v3), {"1.3.6.7"});
    const std::pair<const char*, const char*> rows[] = {
        // As text and as digits, but not as a part.
        {R"({"values":["eight888","private8","7072697661746538","read","other","eight888 ",""]})",
         R"({"values":["•••","•••","•••","•••","other","eight888 ",""]})"},
        // Only what are values.
        {R"({"kind":"read","item":606,"suffix":"606","result":"read","oids":["606"],"values":["1"]})",
         R"({"kind":"read","item":606,"suffix":"606","result":"read","oids":["606"],"values":["1"]})"},
        {R"({"bindings":[{"name":"read","oid":"1.3","type":4,"text":"private8","hex":"606"},
                         {"name":"open","oid":"1.4","type":4,"text":"open","hex":"6F"},
                         {"name":"a","oid":"1.3.6.7.1.2.5","type":4,"text":"open","hex":"6F"}]})",
         R"({"bindings":[{"name":"read","oid":"1.3","type":4,"text":"•••","hex":"•••"},
                         {"name":"open","oid":"1.4","type":4,"text":"open","hex":"6F"},
                         {"name":"a","oid":"1.3.6.7.1.2.5","type":4,"text":"•••","hex":"•••"}]})"},
        // The last value has no OID.
        {R"({"oids":["1.3.6.70.1.5","1.3.6.7.1.5","1.3.6.8.1"],"values":["open","x","behind",""]})",
         R"({"oids":["1.3.6.70.1.5","1.3.6.7.1.5","1.3.6.8.1"],"values":["open","•••","behind",""]})"},
        // Inside what is told.
        {R"({"error":{"status":10,"index":1,"text":"wrongValue: \"private8\" is no number"}})",
         R"({"error":{"status":10,"index":1,"text":"wrongValue: \"•••\" is no number"}})"},
    };
    for (const auto& [line, masked] : rows) {
        EXPECT_EQ(mask.apply(object(line)), object(masked)) << line;
    }
    EXPECT_EQ(mask.applyToText(QStringLiteral("Item 1: Eight888")), QStringLiteral("Item 1: •••"));
    const SecretMask none(secretsOf("", "", {}));
    EXPECT_EQ(none.apply(object(R"({"values":["","x"]})")), object(R"({"values":["","x"]})"));
}

} // namespace

} // namespace onudesk::host
