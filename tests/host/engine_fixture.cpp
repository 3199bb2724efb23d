// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "bridge/code_para_access.h"
#include "env/xml_file.h"
#include "host/read_plan.h"
#include "onudesk/messages.h"
#include "support/wait_for.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

constexpr const char* kCatalogue = R"(<snmpconfig>
<module name="600"><group name="maintable" read="scalar">
  <object name="count" oidstr="1.3.6.1.4.1.27315.600.1.1" type="2"/>
  <object name="label" oidstr="1.3.6.1.4.1.27315.600.1.2" type="4" access="read-write"/>
  <object name="mac" oidstr="1.3.6.1.4.1.27315.600.1.3" type="4" format="hex"/>
  <object name="address" oidstr="1.3.6.1.4.1.27315.600.1.4" type="64"/>
</group></module>
<module name="601"><group name="group1" read="table">
  <object name="port" oidstr="1.3.6.1.4.1.27315.601.1.1" type="2"/>
  <object name="text" oidstr="1.3.6.1.4.1.27315.601.1.2" type="4"/>
  <object name="rate" oidstr="1.3.6.1.4.1.27315.601.1.3" type="66"/>
</group></module>
<module name="602"><group name="first" read="scalar">
  <object name="one" oidstr="1.3.6.1.4.1.27315.602.1.1" type="2"/></group>
  <group name="actions">
  <object name="restart" oidstr="1.3.6.1.4.1.27315.602.2.1" type="2"/></group>
  <group name="rows" read="table">
  <object name="cell" oidstr="1.3.6.1.4.1.27315.602.3.1" type="2"/></group>
  <group name="last" read="scalar">
  <object name="two" oidstr="1.3.6.1.4.1.27315.602.4.1" type="2"/></group></module>
<module name="603"><group name="settings" read="scalar">
  <object name="label" oidstr="1.3.6.1.4.1.27315.603.1.1" type="4" access="read-write"/>
  <object name="limit" oidstr="1.3.6.1.4.1.27315.603.1.2" type="2" access="read-write"/>
  <object name="peer" oidstr="1.3.6.1.4.1.27315.603.1.3" type="64" access="read-write"/>
  <object name="link" oidstr="1.3.6.1.4.1.27315.603.1.4" type="6" access="read-write"/>
  <object name="rate" oidstr="1.3.6.1.4.1.27315.603.1.5" type="66" access="read-write"/>
  <object name="total" oidstr="1.3.6.1.4.1.27315.603.1.6" type="70" access="read-write"/>
  <object name="rowStatus" oidstr="1.3.6.1.4.1.27315.603.1.7" type="2" access="read-create"
            row="rowStatus"/>
  <object name="restart" oidstr="1.3.6.1.4.1.27315.603.1.8" type="2" access="write-only"/>
  <object name="untyped" oidstr="1.3.6.1.4.1.27315.603.1.9" access="read-write"/>
</group></module>
<module name="604"><group name="actions">
  <object name="restart" oidstr="1.3.6.1.4.1.27315.604.1.1" type="2"/></group></module>
</snmpconfig>)";

} // namespace

CatalogueSchema testCatalogue() {
    const Result<XmlDocument> document = parseXml(kCatalogue, "catalogue of the test");
    return readSchema(*(*document)->RootElement()).value();
}

Oid cell(int item, int column, const std::string& instance) {
    return oidOf(kBase + "." + std::to_string(item) + ".1." + std::to_string(column) + "." +
                 instance);
}

void FakeWindow::handleMessage(const platform::WindowMessage& message) {
    auto* reply = static_cast<CodeParaReply*>(message.payload);
    const CodeParaReader reader(*reply);
    const auto number = [&](std::uint8_t id) {
        return static_cast<std::int32_t>(reader.integer(id).value_or(0));
    };
    const auto list = [&](std::uint8_t id) {
        return reader.byteStrings(id).value_or(std::vector<std::string>());
    };
    replies.push_back(
        {.message = message.number,
         .status = reader.integer(CP_STATUS).value_or(99),
         .resultText = reader.text(CP_RESULT_TEXT).value_or("none"),
         .errorText = reader.text(CP_ERROR_TEXT),
         .errorStatus = number(CP_ERROR_STATUS),
         .errorIndex = number(CP_ERROR_INDEX),
         .oids = list(CP_OID_LIST),
         .values = list(CP_VALUE_LIST),
         .lengths = reader.integers(CP_VALUE_LENGTH_LIST).value_or(std::vector<std::uint32_t>()),
         .agentAddress = reader.integer(CP_AGENT_ADDR).value_or(0)});
    releaseReply(&reply);
}

EngineTest::EngineTest() : catalogue_(testCatalogue()) {
    window.emplace();
    session.context.agentAddress = "127.0.0.1";
    session.context.snmpVersion = 1;
    session.context.readCommunity = "readers";
    session.context.writeCommunity = "writers";
    session.context.oltNumber = 1;
    session.context.ponNumber = 2;
    session.context.onuNumber = 5;
    session.OnuIndexText = "1.2.5";
    session.releaseFn = &releaseReply;
    platform::setWindowMessageWaker([this] { wake(); });
}

EngineTest::~EngineTest() {
    engine_.reset();
    window.reset();
    platform::setWindowMessageWaker({});
    EXPECT_EQ(liveReplies(), 0U) << "a reply was lost or released twice";
}

void EngineTest::wake() {
    const std::scoped_lock lock(mutex_);
    woken_.notify_all();
}

void EngineTest::startEngine(std::chrono::milliseconds timeoutUnit, const WalkLimits& limits) {
    engine_.emplace(catalogue_, EngineOptions{timeoutUnit, limits});
    session.hostThreadId = *engine_->hostThreadId();
    session.routeTable = engine_->routeTable();
    engine_->setObserver({.onRequest =
                              [this](const RequestRecord& record) {
                                  const std::scoped_lock lock(mutex_);
                                  observedRequests_.push_back(record);
                              },
                          .onReply =
                              [this](const ReplyRecord& record) {
                                  const std::scoped_lock lock(mutex_);
                                  observedReplies_.push_back(record);
                                  woken_.notify_all();
                              }});
}

EngineTest::Agent::Agent(EngineTest& test, Script script, std::chrono::milliseconds timeoutUnit,
                         const WalkLimits& limits)
    : ScriptedAgent(std::move(script)) {
    test.startEngine(timeoutUnit, limits);
    test.useAgent(port());
}

void EngineTest::read(std::int32_t itemType) {
    registerReadRoute(session, itemType, window->handle());
    ASSERT_TRUE(sendReadRequest(session, itemType));
}

CodeParaPtr EngineTest::writeOf(const std::vector<Setting>& values) {
    CodeParaPtr para = createWriteRequest(session, 603);
    for (const Setting& value : values) {
        const ObjectSchema* schema = findObject(catalogue_, 603, value.object);
        EXPECT_NE(schema, nullptr) << value.object;
        addWriteBinding(*para, value.text, schema->object, session.OnuIndexText, value.length);
    }
    return para;
}

void EngineTest::post(CodeParaPtr para) {
    registerWriteRoute(session, itemTypeOf(*para), window->handle());
    ASSERT_TRUE(postRequest(session, std::move(para)));
}

void EngineTest::postFirstOfTwo(CodeParaPtr para) {
    setInteger(*para, CP_FLAG_130, 0);
    unregisterWriteRoute(session, itemTypeOf(*para));
    ASSERT_TRUE(postRequest(session, std::move(para)));
}

const std::vector<SeenReply>& EngineTest::readAll(std::int32_t itemType) {
    window->replies.clear();
    read(itemType);
    waitUntilIdle();
    return window->replies;
}

SeenReply EngineTest::writeAll(CodeParaPtr para) {
    window->replies.clear();
    post(std::move(para));
    waitUntilIdle();
    EXPECT_EQ(window->replies.size(), 1U);
    return window->replies.empty() ? SeenReply{} : window->replies.front();
}

std::vector<SeenReply> EngineTest::readFrom(const Script& script,
                                            std::chrono::milliseconds timeoutUnit,
                                            std::int32_t itemType, const WalkLimits& limits) {
    Agent agent(*this, script, timeoutUnit, limits);
    auto replies = readAll(itemType);
    agent.stop();
    requests = agent.requests();
    return replies;
}

SeenReply EngineTest::readOne(const Script& script, std::chrono::milliseconds timeoutUnit) {
    const auto replies = readFrom(script, timeoutUnit);
    EXPECT_EQ(replies.size(), 1U);
    return replies.empty() ? SeenReply{} : replies.front();
}

void EngineTest::waitUntil(const std::function<bool()>& condition) {
    const auto holds = [&] {
        platform::dispatchWindowMessages();
        return condition();
    };
    // Some conditions change without a message.
    ASSERT_TRUE(onudesk::test::waitFor(holds, [this] {
        std::unique_lock lock(mutex_);
        woken_.wait_for(lock, 2ms);
    }));
}

void EngineTest::waitUntilIdle() {
    waitUntil(
        [this] { return engine().outstanding() == 0 && platform::pendingWindowMessages() == 0; });
}

std::vector<ReplyRecord> EngineTest::observedReplies() {
    const std::scoped_lock lock(mutex_);
    return observedReplies_;
}

std::vector<RequestRecord> EngineTest::observedRequests() {
    const std::scoped_lock lock(mutex_);
    return observedRequests_;
}

Script silent() {
    return [](const AgentRequest&, Outbox&) {};
}

Script losingTheFirstRequest(const Script& script) {
    return [script, lost = 1](const AgentRequest& request, Outbox& outbox) mutable {
        if (lost-- <= 0) {
            script(request, outbox);
        }
    };
}

Script refusing(std::int32_t status, std::int32_t index) {
    return [=](const AgentRequest& request, Outbox& outbox) {
        outbox.answer(request, {.status = status,
                                .index = index,
                                .bindings = index == 0 ? VarBinds() : request.bindings});
    };
}

void expectError(const SeenReply& reply, std::int32_t status, std::string_view text) {
    EXPECT_EQ(reply.status, 0U);
    EXPECT_EQ(reply.errorStatus, status);
    EXPECT_TRUE(reply.errorText.value_or("").starts_with(text)) << reply.errorText.value_or("none");
    EXPECT_TRUE(reply.values.empty());
}

} // namespace onudesk::host::test
