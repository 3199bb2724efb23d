// SPDX-License-Identifier: MIT
#include "host/snmp_engine.h"

#include "bridge/code_para_access.h"
#include "host/error_names.h"
#include "host/read_job.h"
#include "host/snmp_library.h"
#include "host/write_job.h"
#include "onudesk/messages.h"
#include "platform/window_messages.h"
#include "window/request.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace onudesk::host {

namespace {

// A message of the engine to itself; requests have numbers above 1024.
constexpr std::uint32_t kEndOfSession = 1;

void discardReply(const platform::WindowMessage& message) {
    auto* reply = static_cast<CodeParaReply*>(message.payload);
    releaseReply(&reply);
}

CodeParaPtr takeOwnership(const platform::ThreadMessage& message) {
    return CodeParaPtr(message.number == WM_CODEPARA_REQUEST
                           ? static_cast<DllClientCodePara*>(message.payload)
                           : nullptr);
}

int pollTimeout(const std::optional<SnmpClient::Clock::time_point>& deadline) {
    if (!deadline) {
        return -1;
    }
    const auto left = *deadline - std::min(*deadline, SnmpClient::Clock::now());
    return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count());
}

} // namespace

SnmpEngine::SnmpEngine(CatalogueSchema catalogue, const EngineOptions& options)
    : catalogue_(std::move(catalogue)), options_(options), routes_{&routeMutex_, {}},
      threadId_(queue_.id()) {
    initSnmpLibrary();
    worker_ = std::thread([this] { run(); });
}

SnmpEngine::~SnmpEngine() {
    stop();
}

void SnmpEngine::setV3Defaults(const V3Access& settings) {
    const std::scoped_lock lock(settingsMutex_);
    v3Defaults_ = settings;
}

void SnmpEngine::setObserver(EngineObserver observer) {
    const std::scoped_lock lock(settingsMutex_);
    observer_ = std::move(observer);
}

void SnmpEngine::setOnSettled(std::function<void()> onSettled) {
    const std::scoped_lock lock(settingsMutex_);
    onSettled_ = std::move(onSettled);
}

// In this order: a request is counted as in progress before it leaves the queue.
std::size_t SnmpEngine::outstanding() const {
    const std::size_t waiting = queue_.pending();
    return waiting + inProgress_;
}

std::size_t SnmpEngine::unobserved() const {
    const std::size_t waiting = queue_.pending();
    return waiting + beingTaken_;
}

void SnmpEngine::endSession() {
    ++session_;
    // Behind everything the window posted, so that the worker knows which requests were its.
    static_cast<void>(platform::postThreadMessage(threadId_, {.number = kEndOfSession}));
}

void SnmpEngine::stop() {
    if (!worker_.joinable()) {
        return;
    }
    stopping_ = true;
    queue_.wake();
    worker_.join();
    for (const platform::ThreadMessage& message : queue_.close()) {
        const CodeParaPtr dropped = takeOwnership(message);
    }
    inProgress_ = 0;
}

void SnmpEngine::run() {
    SnmpClient client(options_.timeoutUnit);
    std::vector<pollfd> descriptors;
    bool toldIdle = true;
    while (!stopping_) {
        waitForWork(client, descriptors);
        if (takeRequests(client)) {
            toldIdle = false;
            tellSettled(); // all observed
        }
        client.process(descriptors);
        reap();
        startReady();
        // What is posted from here on is taken, and told of, in a later round.
        if (!toldIdle && outstanding() == 0) {
            toldIdle = true;
            tellSettled();
        }
    }
    jobs_.clear();
}

void SnmpEngine::waitForWork(SnmpClient& client, std::vector<pollfd>& descriptors) {
    descriptors.assign(1, {.fd = queue_.pollDescriptor(), .events = POLLIN, .revents = 0});
    client.addDescriptors(descriptors);
    if (::poll(descriptors.data(), descriptors.size(), pollTimeout(client.nextDeadline())) < 0) {
        // Interrupted: nothing is known to be readable.
        std::ranges::for_each(descriptors, [](pollfd& descriptor) { descriptor.revents = 0; });
    }
}

// The counters stay as they are when there is nothing to take: nobody is told of such a round.
bool SnmpEngine::takeRequests(SnmpClient& client) {
    queue_.acknowledge();
    bool taken = false;
    for (; !stopping_ && queue_.pending() > 0; taken = true) {
        ++inProgress_;
        beingTaken_ = 1;
        const auto message = queue_.take();
        if (message && message->number == kEndOfSession) {
            ++acceptedSession_;
            failedFirstWrites_.clear();
        }
        if (const CodeParaPtr para = message ? takeOwnership(*message) : nullptr) {
            accept(client, *para);
        } else {
            --inProgress_;
            beingTaken_ = 0;
        }
    }
    return taken;
}

void SnmpEngine::accept(SnmpClient& client, const DllClientCodePara& para) {
    observe(para);
    beingTaken_ = 0;
    V3Access defaults;
    {
        const std::scoped_lock lock(settingsMutex_);
        defaults = v3Defaults_;
    }
    Result<HostRequest> request = decodeRequest(para, defaults);
    if (!request) {
        answerBadRequest(para, request.error());
        --inProgress_;
        return;
    }
    const JobTools tools{client, catalogue_, options_.walkLimits};
    const Job::ReplySink sink = [this, session = acceptedSession_](const HostRequest& answered,
                                                                   const ReplyRecord& reply) {
        onReply(answered, session, reply);
    };
    std::unique_ptr<Job> job;
    if (request->kind == RequestKind::read) {
        job = std::make_unique<ReadJob>(tools, std::move(request).value(), sink);
    } else {
        job = std::make_unique<WriteJob>(tools, std::move(request).value(), sink);
    }
    jobs_.push_back({std::move(job), acceptedSession_, false});
}

// Jobs stand in the order in which their requests came.
void SnmpEngine::startReady() {
    using Written = std::tuple<std::uint64_t, std::uint32_t, std::uint16_t, std::int32_t>;
    std::vector<Written> beingWritten;
    for (Running& running : jobs_) {
        const HostRequest& request = running.job->request();
        const Written item{running.session, request.access.address, request.access.port,
                           request.itemType};
        const bool waits = std::ranges::find(beingWritten, item) != beingWritten.end();
        if (!running.started && !waits) {
            running.started = true;
            running.job->start();
        }
        if (request.kind == RequestKind::write && !running.job->done()) {
            beingWritten.push_back(item);
        }
    }
    reap();
}

void SnmpEngine::reap() {
    const auto finished =
        std::erase_if(jobs_, [](const Running& running) { return running.job->done(); });
    inProgress_ -= finished;
}

void SnmpEngine::answerBadRequest(const DllClientCodePara& para, const std::string& problem) {
    const CodeParaReader reader(para);
    ReplyRecord reply;
    reply.kind = requestKind(para);
    reply.itemType = itemTypeOf(para);
    reply.agentAddress = reader.integer(CP_AGENT_ADDR).value_or(0);
    reply.error = {.status = error_status::badRequest,
                   .index = 0,
                   .text = errorName(error_status::badRequest) + ": " + problem};
    HostRequest header;
    header.kind = reply.kind;
    header.itemType = reply.itemType;
    header.firstOfTwo = reader.has(CP_FLAG_130);
    onReply(header, acceptedSession_, std::move(reply));
}

// Nobody waits for the reply to the first of two writes: what went wrong with it is told with the
// second one.
void SnmpEngine::onReply(const HostRequest& request, std::uint64_t session, ReplyRecord reply) {
    if (session != session_) {
        observe(reply); // the window that asked is gone, and the one now open did not ask
        return;
    }
    if (request.kind == RequestKind::read) {
        deliver(std::move(reply));
        return;
    }
    if (request.firstOfTwo) {
        if (reply.error.text.empty()) {
            failedFirstWrites_.erase(request.itemType);
        } else {
            failedFirstWrites_.insert_or_assign(request.itemType, reply.error);
        }
        observe(reply);
        return;
    }
    const auto first = failedFirstWrites_.extract(request.itemType);
    if (!first.empty() && reply.error.text.empty()) {
        reply.status = 0;
        reply.error = first.mapped();
        reply.error.text = "first of two writes: " + reply.error.text;
    }
    deliver(std::move(reply));
}

void SnmpEngine::deliver(ReplyRecord reply) {
    reply.delivered = post(reply);
    observe(reply);
}

bool SnmpEngine::post(const ReplyRecord& reply) {
    std::optional<ReplyRoute> route;
    {
        const std::scoped_lock lock(routeMutex_);
        const auto kind = reply.kind == RequestKind::read ? CP_KIND_READ : CP_KIND_WRITE;
        const auto found = routes_.routes.find(routeKey(kind, reply.itemType));
        if (found != routes_.routes.end()) {
            route = found->second;
        }
    }
    if (!route || stopping_) {
        return false;
    }
    CodeParaReply* posted = makeReply(reply);
    if (platform::postWindowMessage(route->window, {.number = route->message,
                                                    .payload = posted,
                                                    .parameter = 0,
                                                    .discard = discardReply})) {
        return true;
    }
    releaseReply(&posted);
    return false;
}

void SnmpEngine::observe(const ReplyRecord& reply) {
    const std::scoped_lock lock(settingsMutex_);
    if (observer_.onReply) {
        observer_.onReply(reply);
    }
}

void SnmpEngine::tellSettled() {
    const std::scoped_lock lock(settingsMutex_);
    if (onSettled_) {
        onSettled_();
    }
}

void SnmpEngine::observe(const DllClientCodePara& para) {
    const std::scoped_lock lock(settingsMutex_);
    if (observer_.onRequest) {
        observer_.onRequest(
            {.kind = requestKind(para),
             .itemType = itemTypeOf(para),
             .suffix = CodeParaReader(para).text(CP_INDEX_SUFFIX).value_or(std::string()),
             .bindings = readableBindings(para)});
    }
}

} // namespace onudesk::host
