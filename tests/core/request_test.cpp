// SPDX-License-Identifier: MIT
#include "window/request.h"

#include "support/test_host.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::Binding;
using test::TestHost;

TEST(ReadSuffix, IsBuiltFromTheLevelsThatArePresent) {
    struct Case {
        std::int32_t olt, pon, onu, sub;
        std::optional<std::string> port;
        std::optional<std::string> suffix;
        std::optional<std::uint32_t> subIndexEntry;
        bool portStaysPending;
    };
    for (const Case& each :
         {Case{1, 2, 5, -1, {}, ".1.2.5", {}, false}, Case{1, -1, 5, -1, {}, ".1.5", {}, false},
          Case{1, 2, -1, -1, {}, ".1.2", {}, false}, Case{-1, 2, 5, 7, "3", {}, {}, true},
          Case{1, 2, 5, -1, "3", ".1.2.5.3", {}, false},
          Case{1, 2, 5, -1, "", ".1.2.5.", {}, false}, Case{1, 2, 5, 7, {}, ".1.2.5.7", 7, false},
          Case{1, 2, 5, 7, "3", ".1.2.5.7", 7, true}}) {
        TestHost host;
        Session session = host.session();
        session.context.oltNumber = each.olt;
        session.context.ponNumber = each.pon;
        session.context.onuNumber = each.onu;
        session.SubIndex = each.sub;
        if (each.port) {
            setPortSegment(session, *each.port);
        }
        ASSERT_TRUE(sendReadRequest(session, 606));
        const auto posted = host.take();
        ASSERT_TRUE(posted);
        EXPECT_EQ(posted->kind, CP_KIND_READ);
        EXPECT_EQ(posted->suffix, each.suffix);
        EXPECT_EQ(CodeParaReader(*posted->record).integer(CP_SUB_INDEX), each.subIndexEntry);
        EXPECT_EQ(session.PortPending, each.portStaysPending);
    }
}

TEST(ReadRequest, PortSegmentServesOneReadOnly) {
    TestHost host;
    Session session = host.session();
    setPortSegment(session, "3");
    ASSERT_TRUE(sendReadRequest(session, 606));
    ASSERT_TRUE(sendReadRequest(session, 606));
    EXPECT_EQ(host.take()->suffix, ".1.2.5.3");
    EXPECT_EQ(host.take()->suffix, ".1.2.5");
}

TEST(Requests, CarryEverySettingWhateverTheVersion) {
    TestHost host;
    Session session = host.session();
    session.context.agentAddress = "192.168.1.2";
    session.context.snmpVersion = 0;
    session.context.snmpPort = 1161;
    session.context.timeout = 7;
    session.context.retries = 2;
    session.context.readCommunity = "reads";
    session.context.writeCommunity = "writes";
    session.context.v3UserName = "user";
    session.context.v3EngineId = "80001f88";
    session.context.authPassword = "authentic";
    session.context.privPassword = "privately";
    session.context.securityLevel = 3;
    ASSERT_TRUE(sendReadRequest(session, 606));
    const auto posted = host.take();
    const CodeParaReader reader(*posted->record);
    EXPECT_EQ(reader.integer(CP_AGENT_ADDR), 0xC0A80102U);
    EXPECT_EQ(reader.integer(CP_SNMP_VERSION), 0U);
    EXPECT_EQ(reader.integer(CP_SNMP_PORT), 1161U);
    EXPECT_EQ(reader.integer(CP_TIMEOUT), 7U);
    EXPECT_EQ(reader.integer(CP_RETRIES), 2U);
    EXPECT_EQ(reader.text(CP_READ_COMMUNITY), "reads");
    EXPECT_EQ(reader.text(CP_WRITE_COMMUNITY), "writes");
    EXPECT_EQ(reader.text(CP_V3_USER), "user");
    EXPECT_EQ(reader.text(CP_V3_CONTEXT), ""); // there, and empty
    EXPECT_EQ(reader.text(CP_V3_ENGINE_ID), "80001f88");
    EXPECT_EQ(reader.text(CP_V3_AUTH_KEY), "authentic");
    EXPECT_EQ(reader.text(CP_V3_PRIV_KEY), "privately");
    EXPECT_EQ(reader.integer(CP_V3_SEC_LEVEL), 3U);
    EXPECT_EQ(reader.integer(CP_V3_SEC_MODEL), 0xFFFFFFFFU); // not set
    EXPECT_EQ(reader.integer(CP_V3_AUTH_PROTO), 0xFFFFFFFFU);
    EXPECT_EQ(reader.integer(CP_V3_PRIV_PROTO), 0xFFFFFFFFU);
}

TEST(AddressNumber, ReadsWhatInetAddrReads) {
    EXPECT_EQ(addressNumber("10.0.0.1"), 0x0A000001U);
    EXPECT_EQ(addressNumber("10.1"), 0x0A000001U);
    EXPECT_EQ(addressNumber("onu.example"), 0xFFFFFFFFU);
    EXPECT_EQ(addressNumber(""), 0xFFFFFFFFU);
    EXPECT_EQ(addressNumber("255.255.255.255"), 0xFFFFFFFFU);
}

TEST(WriteRequest, ListsRunInParallelInTheOrderAdded) {
    TestHost host;
    const Session session = host.session();
    CodeParaPtr request = createWriteRequest(session, 606);
    const std::string mac("\x00\x1A\x2B\x00\x4D\x5E", 6);
    addWriteBinding(*request, mac, {"onuBindMac", "1.3.6.1.9", 4}, "1.2.5", 6);
    addWriteBinding(*request, "cellar", {"onuName", "1.3.6.1.8", 4}, "1.2.5");
    addWriteBinding(*request, "1", {"noOid", "", 2}, "1.2.5");
    addWriteBinding(*request, "", {"noSuffix", "1.3.6.1.7", 2}, "");
    addWriteBinding(*request, "\x01", {"short", "1.3.6.1.6", 4}, "1", 3);
    ASSERT_TRUE(postWrite(session, std::move(request)));
    const auto posted = host.take();
    EXPECT_EQ(posted->kind, CP_KIND_WRITE);
    EXPECT_EQ(posted->suffix, std::nullopt);
    EXPECT_EQ(posted->bindings,
              (std::vector<Binding>{{"onuBindMac", "1.3.6.1.9.1.2.5", mac, 4},
                                    {"onuName", "1.3.6.1.8.1.2.5", "cellar", 4},
                                    {"noOid", "", "1", 2},
                                    {"noSuffix", "1.3.6.1.7", "", 2},
                                    {"short", "1.3.6.1.6.1", std::string("\x01\0\0", 3), 4}}));
}

TEST(WriteRequest, WithoutBindingsIsNotSent) {
    TestHost host;
    const Session session = host.session();
    EXPECT_FALSE(postWrite(session, createWriteRequest(session, 606)));
    EXPECT_EQ(host.pending(), 0U);
}

} // namespace
} // namespace onudesk
