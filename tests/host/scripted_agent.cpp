// SPDX-License-Identifier: MIT
#include "scripted_agent.h"

#include "ber.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace onudesk::host::test {

namespace {

constexpr std::int64_t kVersion3 = 3;
constexpr std::int32_t kNoSuchName = 2;
constexpr std::int64_t kMaxMessage = 65507;
constexpr std::int64_t kUsm = 3;

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int loopbackSocket() {
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(0);
    if (::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("no free loopback port");
    }
    return descriptor;
}

void decodePdu(BerReader& reader, AgentRequest& request) {
    request.pdu = reader.nextTag();
    BerReader pdu(reader.content());
    request.requestId = pdu.integer();
    static_cast<void>(pdu.integer());
    request.maxRepetitions = pdu.integer();
    request.bindings = pdu.bindings();
}

AgentRequest decodeRequestMessage(std::string_view datagram) {
    AgentRequest request;
    BerReader outer(datagram);
    BerReader message(outer.content());
    request.version = message.integer();
    if (request.version != kVersion3) {
        request.community = message.content();
        decodePdu(message, request);
        return request;
    }
    BerReader header(message.content());
    request.messageId = header.integer();
    BerReader securityOctets(message.content());
    BerReader security(securityOctets.content());
    request.engineId = security.content();
    static_cast<void>(security.integer());
    static_cast<void>(security.integer());
    request.user = security.content();
    if (message.nextTag() != tag::octets) {
        BerReader scoped(message.content());
        static_cast<void>(scoped.content());
        static_cast<void>(scoped.content());
        decodePdu(scoped, request);
    }
    return request;
}

class SocketOutbox : public Outbox {
public:
    SocketOutbox(int descriptor, std::uint16_t peerPort)
        : descriptor_(descriptor), peerPort_(peerPort) {}
    void answer(const AgentRequest& request, const AgentResponse& response) override {
        send(descriptor_, request.peerPort, encodeResponse(request, response));
    }
    void answerFromElsewhere(const AgentRequest& request, const AgentResponse& response) override {
        const int other = loopbackSocket();
        send(other, request.peerPort, encodeResponse(request, response));
        ::close(other);
    }
    void sendBytes(const std::string& datagram) override { send(descriptor_, peerPort_, datagram); }

private:
    static void send(int descriptor, std::uint16_t port, const std::string& datagram) {
        const sockaddr_in peer = loopback(port);
        ::sendto(descriptor, datagram.data(), datagram.size(), 0,
                 reinterpret_cast<const sockaddr*>(&peer), sizeof peer);
    }
    int descriptor_;
    std::uint16_t peerPort_;
};

} // namespace

std::string encodeResponse(const AgentRequest& request, const AgentResponse& response) {
    const std::string pdu =
        berElement(response.pdu, berInteger(request.requestId) + berInteger(response.status) +
                                     berInteger(response.index) + berBindings(response.bindings));
    if (request.version != kVersion3) {
        return berSequence(berInteger(request.version) + berOctets(request.community) + pdu);
    }
    const std::string header = berSequence(berInteger(request.messageId) + berInteger(kMaxMessage) +
                                           berOctets(std::string_view("\0", 1)) + berInteger(kUsm));
    const std::string security =
        berSequence(berOctets(response.engineId) + berInteger(1) + berInteger(1) +
                    berOctets(request.user) + berOctets({}) + berOctets({}));
    const std::string scoped = berSequence(berOctets(response.engineId) + berOctets({}) + pdu);
    return berSequence(berInteger(kVersion3) + header + berOctets(security) + scoped);
}

ScriptedAgent::ScriptedAgent(Script script)
    : script_(std::move(script)), socket_(loopbackSocket()), stopEvent_(::eventfd(0, EFD_CLOEXEC)) {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { run(); });
}

ScriptedAgent::~ScriptedAgent() {
    ::eventfd_write(stopEvent_, 1);
    thread_.join();
    ::close(socket_);
    ::close(stopEvent_);
}

void ScriptedAgent::run() {
    while (true) {
        std::array<pollfd, 2> waiting{{{socket_, POLLIN, 0}, {stopEvent_, POLLIN, 0}}};
        ::poll(waiting.data(), waiting.size(), -1);
        if (waiting[1].revents != 0) {
            return;
        }
        std::array<char, 65536> buffer{};
        sockaddr_in peer{};
        socklen_t length = sizeof peer;
        const ssize_t count = ::recvfrom(socket_, buffer.data(), buffer.size(), 0,
                                         reinterpret_cast<sockaddr*>(&peer), &length);
        if (count <= 0) {
            continue;
        }
        AgentRequest request =
            decodeRequestMessage({buffer.data(), static_cast<std::size_t>(count)});
        request.peerPort = ntohs(peer.sin_port);
        {
            const std::scoped_lock lock(mutex_);
            requests_.push_back(request);
        }
        SocketOutbox outbox(socket_, request.peerPort);
        script_(request, outbox);
    }
}

std::vector<AgentRequest> ScriptedAgent::requests() const {
    const std::scoped_lock lock(mutex_);
    return requests_;
}

std::size_t ScriptedAgent::count(std::uint8_t pdu) const {
    return static_cast<std::size_t>(std::ranges::count(requests(), pdu, &AgentRequest::pdu));
}

AgentResponse Mib::answer(const AgentRequest& request) {
    switch (request.pdu) {
    case kGet:
        return get(request);
    case kGetNext:
        return getNext(request);
    case kGetBulk:
        return getBulk(request);
    default:
        for (const VarBind& binding : request.bindings) {
            values_[binding.oid] = binding.value;
        }
        return {.bindings = request.bindings};
    }
}

AgentResponse Mib::get(const AgentRequest& request) const {
    AgentResponse response{.bindings = request.bindings};
    std::int32_t index = 0;
    for (VarBind& binding : response.bindings) {
        ++index;
        const auto found = values_.find(binding.oid);
        if (found != values_.end()) {
            binding.value = found->second;
        } else if (request.version == 0) {
            return {.status = kNoSuchName, .index = index, .bindings = request.bindings};
        } else {
            binding.value = {.tag = tag::noSuchInstance};
        }
    }
    return response;
}

VarBind Mib::following(const Oid& oid) const {
    const auto found = values_.upper_bound(oid);
    return found == values_.end() ? VarBind{oid, {.tag = tag::endOfMibView}}
                                  : VarBind{found->first, found->second};
}

AgentResponse Mib::getNext(const AgentRequest& request) const {
    AgentResponse response{.bindings = request.bindings};
    std::int32_t index = 0;
    for (VarBind& binding : response.bindings) {
        ++index;
        binding = following(binding.oid);
        if (request.version == 0 && binding.value.tag == tag::endOfMibView) {
            return {.status = kNoSuchName, .index = index, .bindings = request.bindings};
        }
    }
    return response;
}

AgentResponse Mib::getBulk(const AgentRequest& request) const {
    AgentResponse response;
    VarBinds last = request.bindings;
    for (std::int64_t repetition = 0; repetition < request.maxRepetitions; ++repetition) {
        for (VarBind& binding : last) {
            binding = following(binding.oid);
            response.bindings.push_back(binding);
        }
    }
    return response;
}

Script honest(Mib& mib) {
    return [&mib](const AgentRequest& request, Outbox& outbox) {
        outbox.answer(request, mib.answer(request));
    };
}

Oid oidOf(const std::string& text) {
    return parseOid(text).value();
}

SnmpValue integerValue(std::int64_t number) {
    return {.tag = tag::integer, .number = static_cast<std::uint64_t>(number)};
}

SnmpValue octetsValue(const std::string& bytes) {
    return {.tag = tag::octets, .octets = bytes};
}

} // namespace onudesk::host::test
