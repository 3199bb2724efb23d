// SPDX-License-Identifier: MIT
#include "bridge/session.h"

#include "platform/window_messages.h"
#include "support/test_host.h"

#include <cstring>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::TestHost;

TEST(ParameterBlock, TextsAreBoundedWithAndWithoutTerminator) {
    HolderConfigParam param{};
    std::memset(&param, 'x', sizeof param); // no terminator anywhere
    std::memcpy(param.menuFileName, "menu.xml", 9);
    std::string exactly(100, 'a');
    std::memcpy(param.readCommunity, exactly.c_str(), 101);
    SessionContext context;
    copyParam(param, context);
    EXPECT_EQ(context.agentAddress, std::string(100, 'x'));
    EXPECT_EQ(context.hostTextC, std::string(150, 'x'));
    EXPECT_EQ(context.readCommunity, exactly);
    EXPECT_EQ(context.menuFileName, "menu.xml");
    EXPECT_EQ(context.rootCaption.size(), 100U);
    EXPECT_EQ(context.writeCommunityCopy, context.writeCommunity);
}

TEST(ParameterBlock, LeavesSettingsItDoesNotCarryAtTheirDefaults) {
    HolderConfigParam param{};
    param.snmpPort = 1161;
    param.snmpVersion = 3;
    param.localeId = 2052;
    SessionContext context;
    copyParam(param, context);
    EXPECT_EQ(context.snmpPort, 1161);
    EXPECT_EQ(context.snmpVersion, 3);
    EXPECT_EQ(context.timeout, 5);
    EXPECT_EQ(context.retries, 1);
    EXPECT_EQ(context.securityModel, -1);
    EXPECT_EQ(context.securityLevel, -1);
    EXPECT_EQ(context.authProtocol, -1);
    EXPECT_EQ(context.privProtocol, -1);
    EXPECT_EQ(context.localeId, 1033U);
}

TEST(SessionStart, FormatsAbsentLevelsAndClearsThePortSegment) {
    HolderConfigParam param{};
    param.oltNumber = 1;
    param.ponNumber = -1;
    param.onuNumber = 3;
    param.subIndex = 7;
    Session session;
    session.PortPending = true;
    session.PendingPortText = "4";
    startSession(param, session);
    EXPECT_EQ(session.OnuIndexText, "1.-1.3");
    EXPECT_EQ(session.SubIndex, 7);
    EXPECT_FALSE(session.PortPending);
    EXPECT_EQ(session.PendingPortText, "");
}

TEST(Routes, RegistrationReplacesEveryRouteOfItsKeyOnly) {
    TestHost host;
    const Session session = host.session();
    const std::uint32_t read606 = routeKey(CP_KIND_READ, 606);
    host.routes.routes.emplace(read606, ReplyRoute{WM_CODEPARA_READ_REPLY, 1});
    host.routes.routes.emplace(read606, ReplyRoute{WM_CODEPARA_READ_REPLY, 2});
    registerReadRoute(session, 605, 9);
    registerWriteRoute(session, 606, 8);
    registerReadRoute(session, 606, 3);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 606), 3U);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 605), 9U);
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 606), 8U);
    EXPECT_EQ(host.routes.routes.find(routeKey(CP_KIND_WRITE, 606))->second.message,
              WM_CODEPARA_WRITE_REPLY);
    unregisterWriteRoute(session, 606);
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 606), 0U);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 606), 3U);
    registerWriteRoute(session, 606, 8);
    unregisterRoutes(session, 606);
    EXPECT_EQ(host.routes.routes.size(), 1U);
}

TEST(Routes, WithdrawingAWindowLeavesTheRoutesOfOthers) {
    TestHost host;
    const Session session = host.session();
    registerReadRoute(session, 606, 3);
    registerWriteRoute(session, 606, 3);
    registerReadRoute(session, 605, 4);
    unregisterWindow(session, 3);
    EXPECT_EQ(host.routes.routes.size(), 1U);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 605), 4U);
}

TEST(Posting, FailureDestroysTheRequestAndKeepsTheRoute) {
    TestHost host;
    const Session session = host.session();
    registerReadRoute(session, 606, 3);
    EXPECT_TRUE(postRequest(session, createCodePara()));
    EXPECT_EQ(host.pending(), 1U);
    host.goAway();
    EXPECT_FALSE(postRequest(session, createCodePara())); // the leak check sees it destroyed
    EXPECT_FALSE(postRequest(session, nullptr));
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 606), 3U);
}

TEST(BorrowedReplies, GoBackOnceWhicheverWayTheyAreLeft) {
    TestHost host;
    const Session session = host.session();
    {
        BorrowedReply reply(session, TestHost::makeReply({}));
        reply.giveBack();
        EXPECT_EQ(TestHost::outstandingReplies(), 0U);
        EXPECT_FALSE(reply);
        EXPECT_FALSE(reply.reader().has(CP_STATUS));
    }
    { const BorrowedReply reply(session, TestHost::makeReply({})); }
    EXPECT_EQ(TestHost::outstandingReplies(), 0U);
    const BorrowedReply none(session, nullptr);
    EXPECT_FALSE(none);
}

} // namespace
} // namespace onudesk
