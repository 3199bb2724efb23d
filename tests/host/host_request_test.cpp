// SPDX-License-Identifier: MIT
#include "host/host_request.h"

#include "bridge/code_para_access.h"
#include "bridge/session.h"
#include "onudesk/messages.h"
#include "window/request.h"

#include <functional>
#include <utility>
#include <variant>

#include <gtest/gtest.h>

namespace onudesk::host::test {

namespace {

// Fills a record's entry anew, whatever it held.
void replace(DllClientCodePara& para, std::uint8_t id, std::uint32_t value) {
    para.entries->erase(id);
    setInteger(para, id, value);
}

void replace(DllClientCodePara& para, std::uint8_t id, const std::string& text) {
    para.entries->erase(id);
    setText(para, id, text);
}

Session goodSession() {
    Session session;
    session.context.agentAddress = "192.168.1.2";
    session.context.snmpPort = 1161;
    session.context.snmpVersion = 3;
    session.context.readCommunity = "readers";
    session.context.writeCommunity = "writers";
    session.context.oltNumber = 1;
    session.context.ponNumber = 2;
    session.context.onuNumber = 5;
    session.context.v3UserName = "operator";
    session.context.v3ContextName = "olt";
    session.context.v3EngineId = "0x8000000001";
    session.context.securityLevel = 3;
    session.context.authProtocol = 3;
    session.context.authPassword = "authphrase";
    session.context.privProtocol = 2;
    session.context.privPassword = "privphrase";
    return session;
}

CodeParaPtr goodRead() {
    Session session = goodSession();
    CodeParaPtr para = createCodePara();
    fillReadRequest(*para, session, 606);
    return para;
}

CodeParaPtr goodWrite() {
    const Session session = goodSession();
    CodeParaPtr para = createWriteRequest(session, 606);
    addWriteBinding(*para, std::string("\0\x1A\x2B", 3), {"onuBindMac", "1.3.6", 4}, "1.2.5", 3);
    addWriteBinding(*para, "4", {"MacRowStatus", "1.3.7", 2}, "1.2.5");
    return para;
}

std::string problemOf(const DllClientCodePara& para, const V3Access& defaults = {}) {
    const Result<HostRequest> request = decodeRequest(para, defaults);
    return request ? "no problem" : request.error();
}

} // namespace

TEST(HostRequestTest, ReadRecord) {
    const Result<HostRequest> request = decodeRequest(*goodRead(), {});
    ASSERT_TRUE(request.ok()) << request.error();
    EXPECT_EQ(request->kind, RequestKind::read);
    EXPECT_EQ(request->itemType, 606);
    EXPECT_EQ(request->suffix, ".1.2.5");
    EXPECT_EQ(request->instance, (Oid{1, 2, 5}));
    EXPECT_FALSE(request->firstOfTwo);
    const AgentAccess& access = request->access;
    EXPECT_EQ(agentName(access), "192.168.1.2:1161");
    EXPECT_EQ(access.version, SnmpVersion::v3);
    EXPECT_EQ(access.readCommunity, "readers");
    EXPECT_EQ(access.writeCommunity, "writers");
    EXPECT_EQ(access.timeout, 5);
    EXPECT_EQ(access.retries, 1);
    EXPECT_EQ(access.v3, (V3Access{.user = "operator",
                                   .contextName = "olt",
                                   .engineId = std::string("\x80\0\0\0\x01", 5),
                                   .level = SecurityLevel::authPriv,
                                   .authProtocol = AuthProtocol::sha,
                                   .authPassphrase = "authphrase",
                                   .privProtocol = PrivProtocol::des,
                                   .privPassphrase = "privphrase"}));
}

TEST(HostRequestTest, WriteRecord) {
    CodeParaPtr para = goodWrite();
    setInteger(*para, CP_FLAG_130, 0);
    const Result<HostRequest> request = decodeRequest(*para, {});
    ASSERT_TRUE(request.ok()) << request.error();
    EXPECT_EQ(request->kind, RequestKind::write);
    EXPECT_TRUE(request->firstOfTwo);
    ASSERT_EQ(request->bindings.size(), 2U);
    EXPECT_EQ(request->bindings[0].value, std::string("\0\x1A\x2B", 3));
    EXPECT_EQ(request->bindings[1].name, "MacRowStatus");
    EXPECT_EQ(request->bindings[1].oid, "1.3.7.1.2.5");
    EXPECT_EQ(request->bindings[1].type, 2U);
}

TEST(HostRequestTest, APortThatIsNotKnownIsNoneAndWithoutOltThereIsNoInstance) {
    CodeParaPtr para = goodRead();
    replace(*para, CP_INDEX_SUFFIX, ".1.2.5.");
    const Result<HostRequest> request = decodeRequest(*para, {});
    ASSERT_TRUE(request.ok()) << request.error();
    EXPECT_EQ(request->instance, (Oid{1, 2, 5}));
    EXPECT_EQ(request->suffix, ".1.2.5.");
    para->entries->erase(CP_INDEX_SUFFIX);
    EXPECT_EQ(decodeRequest(*para, {})->instance, Oid());
}

TEST(HostRequestTest, TimeOutAndRetriesAreBroughtIntoRange) {
    struct Case {
        std::int32_t timeout, retries, seenTimeout, seenRetries;
    };
    for (const Case& known : {Case{0, -1, 1, 0}, Case{-2147483647, 10, 1, 9}, Case{60, 9, 60, 9},
                              Case{61, 0, 60, 0}, Case{2147483647, 2147483647, 60, 9}}) {
        CodeParaPtr para = goodRead();
        replace(*para, CP_TIMEOUT, static_cast<std::uint32_t>(known.timeout));
        replace(*para, CP_RETRIES, static_cast<std::uint32_t>(known.retries));
        const Result<HostRequest> request = decodeRequest(*para, {});
        ASSERT_TRUE(request.ok()) << request.error();
        EXPECT_EQ(request->access.timeout, known.seenTimeout);
        EXPECT_EQ(request->access.retries, known.seenRetries);
    }
}

TEST(HostRequestTest, DamagedRecordsAreRefusedByName) {
    const std::string wrong = " is missing or of the wrong kind";
    const std::string needs = "the security level needs ";
    struct Case {
        std::uint8_t id;
        std::variant<std::monostate, std::uint32_t, std::string> value; // nothing: erased
        std::string problem;
    };
    const std::vector<Case> cases = {
        {CP_AGENT_ADDR, "192.168.1.2", "the agent address" + wrong},
        {CP_AGENT_ADDR, 0xFFFFFFFFU, "the agent address is no IPv4 address"},
        {CP_SNMP_PORT, 0U, "port 0 is not between 1 and 65535"},
        {CP_SNMP_PORT, 65697U, "port 65697 is not between 1 and 65535"},
        {CP_SNMP_VERSION, 2U, "unknown SNMP version 2"},
        {CP_SNMP_VERSION, 259U, "unknown SNMP version 259"},
        {CP_TIMEOUT, "5", "the time-out" + wrong},
        {CP_RETRIES, {}, "the number of retries" + wrong},
        {CP_READ_COMMUNITY, {}, "the read community" + wrong},
        {CP_WRITE_COMMUNITY, 1U, "the write community" + wrong},
        {CP_INDEX_SUFFIX, 1U, "the instance suffix \"\" is no list of numbers"},
        {CP_INDEX_SUFFIX, ".1.2..", "the instance suffix \".1.2..\" is no list of numbers"},
        {CP_INDEX_SUFFIX, ".", "the instance suffix \".\" is no list of numbers"},
        {CP_INDEX_SUFFIX, ".1.-1.5", "the instance suffix \".1.-1.5\" is no list of numbers"},
        {CP_V3_SEC_LEVEL, {}, "the security level" + wrong},
        {CP_V3_USER, 7U, "the user name" + wrong},
        {CP_V3_SEC_LEVEL, 4U, "unknown security level 4"},
        {CP_V3_AUTH_PROTO, 9U, "unknown authentication protocol 9"},
        {CP_V3_AUTH_PROTO, 1U, needs + "an authentication protocol"},
        {CP_V3_AUTH_PROTO, 0xFFFFFFFFU, needs + "an authentication protocol"},
        {CP_V3_PRIV_PROTO, 3U, "unknown privacy protocol 3"},
        {CP_V3_PRIV_PROTO, 1U, needs + "a privacy protocol"},
        {CP_V3_AUTH_KEY, "1234567", "the authentication pass phrase is shorter than 8 characters"},
        {CP_V3_PRIV_KEY, "", "the privacy pass phrase is shorter than 8 characters"},
        {CP_V3_ENGINE_ID, "8000zz", "the engine id is not in hexadecimal digits"},
        {CP_V3_ENGINE_ID, "80000001", "the engine id must have 5 to 32 bytes"},
    };
    for (const Case& damage : cases) {
        const CodeParaPtr para = goodRead();
        para->entries->erase(damage.id);
        if (const auto* number = std::get_if<std::uint32_t>(&damage.value)) {
            setInteger(*para, damage.id, *number);
        } else if (const auto* text = std::get_if<std::string>(&damage.value)) {
            setText(*para, damage.id, *text);
        }
        EXPECT_EQ(problemOf(*para), damage.problem);
    }
    const CodeParaPtr para = goodRead();
    para->requestKind = 2;
    EXPECT_EQ(problemOf(*para), "unknown request kind 2");
    para->serviceCode = 4;
    EXPECT_EQ(problemOf(*para), "unknown service 4");
    const CodeParaPtr empty = goodRead();
    empty->entries->clear();
    EXPECT_EQ(problemOf(*empty), "the agent address" + wrong);
}

TEST(HostRequestTest, DamagedBindingsAreRefusedByName) {
    using Para = DllClientCodePara;
    const char* const differ = "the lists of the bindings differ in length";
    const char* const absent = "a list of the bindings is missing or of the wrong kind";
    const std::pair<std::function<void(Para&)>, const char*> damages[] = {
        {[](Para& para) { appendByteString(para, CP_NAME_LIST, "x", 1); }, differ},
        {[](Para& para) { appendByteString(para, CP_OID_LIST, "x", 1); }, differ},
        {[](Para& para) { appendByteString(para, CP_VALUE_LIST, "x", 1); }, differ},
        {[](Para& para) { appendInteger(para, CP_TYPE_LIST, 1); }, differ},
        {[](Para& para) { para.entries->erase(CP_NAME_LIST); }, absent},
        {[](Para& para) { para.entries->erase(CP_TYPE_LIST); }, absent},
        {[](Para& para) { replace(para, CP_VALUE_LIST, "x"); }, absent},
    };
    for (const auto& [damage, problem] : damages) {
        const CodeParaPtr para = goodWrite();
        damage(*para);
        EXPECT_EQ(problemOf(*para), problem);
    }
}

TEST(HostRequestTest, OpenSecuritySettingsComeFromTheProfile) {
    const V3Access profile{.user = "profile", .level = SecurityLevel::noAuthNoPriv};
    CodeParaPtr para = goodRead();
    replace(*para, CP_V3_SEC_LEVEL, 0xFFFFFFFFU);
    EXPECT_EQ(decodeRequest(*para, profile)->access.v3, profile);
    EXPECT_EQ(problemOf(*para), "SNMPv3 needs a user name");
    EXPECT_EQ(problemOf(*para, {.user = "profile"}), "SNMPv3 needs a security level");
    EXPECT_EQ(problemOf(*para, {.user = "profile",
                                .level = SecurityLevel::authNoPriv,
                                .authProtocol = AuthProtocol::md5,
                                .authPassphrase = "short"}),
              "the authentication pass phrase is shorter than 8 characters");
}

TEST(HostRequestTest, VersionAndLevelDecideWhichSettingsCount) {
    CodeParaPtr para = goodRead();
    replace(*para, CP_V3_SEC_LEVEL, 1);
    replace(*para, CP_V3_AUTH_KEY, "short");
    const Result<HostRequest> request = decodeRequest(*para, {});
    ASSERT_TRUE(request.ok()) << request.error();
    EXPECT_EQ(request->access.v3.authProtocol, AuthProtocol::none);
    EXPECT_TRUE(request->access.v3.authPassphrase.empty());
    EXPECT_TRUE(request->access.v3.privPassphrase.empty());
    replace(*para, CP_SNMP_VERSION, 1);
    replace(*para, CP_V3_SEC_LEVEL, 77);
    EXPECT_EQ(problemOf(*para), "no problem");
}

} // namespace onudesk::host::test
