// SPDX-License-Identifier: MIT
#include "scripted_agent.h"

#include "snmp/wire/variable.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace onudesk::host::test {

namespace {

constexpr long kVersion3 = 3;
constexpr std::int32_t kNoSuchName = 2;
constexpr long kMaxMessage = 65507;
constexpr long kUsm = 3;

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

// Takes elements off the front of a message.
class Reader {
public:
    Reader(u_char* at, std::size_t length) : at_(at), left_(length) {}

    std::int64_t integer() {
        long number = 0;
        check(asn_parse_int(at_, &left_, &type_, &number, sizeof number));
        return number;
    }
    std::string octets() {
        std::array<u_char, 256> bytes{};
        std::size_t length = bytes.size();
        check(asn_parse_string(at_, &left_, &type_, bytes.data(), &length));
        return {bytes.begin(), bytes.begin() + length};
    }
    // What the next element, whatever its tag, is made of.
    Reader content() {
        std::size_t length = left_;
        u_char* const inside = asn_parse_header(at_, &length, &type_);
        const std::size_t taken = static_cast<std::size_t>(inside - at_) + length;
        left_ -= taken;
        at_ += taken;
        return {inside, length};
    }
    [[nodiscard]] u_char nextTag() const { return *at_; }
    void pdu(AgentRequest& request) {
        netsnmp_pdu pdu{};
        pdu.version = request.version;
        snmp_pdu_parse(&pdu, at_, &left_);
        request.pdu = static_cast<std::uint8_t>(pdu.command);
        request.requestId = pdu.reqid;
        request.maxRepetitions = pdu.max_repetitions;
        for (const auto* each = pdu.variables; each != nullptr; each = each->next_variable) {
            request.bindings.push_back(bindingOf(*each));
        }
        snmp_free_varbind(pdu.variables);
    }

private:
    void check(u_char* next) {
        if (next == nullptr) {
            throw std::runtime_error("malformed request");
        }
        at_ = next;
    }

    u_char* at_;
    std::size_t left_;
    u_char type_ = 0;
};

AgentRequest decodeRequestMessage(u_char* datagram, std::size_t length) {
    AgentRequest request;
    Reader message = Reader(datagram, length).content();
    request.version = message.integer();
    if (request.version != kVersion3) {
        request.community = message.octets();
        message.pdu(request);
        return request;
    }
    request.messageId = message.content().integer();
    Reader security = message.content().content();
    request.engineId = security.octets();
    security.integer();
    security.integer();
    request.user = security.octets();
    if (message.nextTag() != ASN_OCTET_STR) {
        Reader scoped = message.content();
        scoped.octets();
        scoped.octets();
        scoped.pdu(request);
    }
    return request;
}

std::string element(u_char tag, const std::string& content) {
    std::array<u_char, 8> head{};
    std::size_t room = head.size();
    const u_char* const end = asn_build_header(head.data(), &room, tag, content.size());
    return std::string(std::as_const(head).data(), end) + content;
}
std::string sequence(const std::string& content) {
    return element(ASN_SEQUENCE | ASN_CONSTRUCTOR, content);
}
std::string octets(const std::string& bytes) {
    return element(ASN_OCTET_STR, bytes);
}
std::string integer(long number) {
    std::array<u_char, 16> bytes{};
    std::size_t room = bytes.size();
    return {bytes.data(), asn_build_int(bytes.data(), &room, ASN_INTEGER, &number, sizeof number)};
}

std::string encodePdu(const AgentRequest& request, const AgentResponse& response) {
    netsnmp_pdu pdu{};
    pdu.version = request.version;
    pdu.command = response.pdu;
    pdu.reqid = request.requestId;
    pdu.errstat = response.status;
    pdu.errindex = response.index;
    for (const VarBind& binding : response.bindings) {
        const std::vector<oid> name = toNetSnmp(binding.oid);
        setValue(*snmp_varlist_add_variable(&pdu.variables, name.data(), name.size(), ASN_NULL,
                                            nullptr, 0),
                 binding.value);
    }
    std::vector<u_char> bytes(kMaxMessage);
    std::size_t room = bytes.size();
    const u_char* const end = snmp_pdu_build(&pdu, bytes.data(), &room);
    snmp_free_varbind(pdu.variables);
    return end == nullptr ? std::string() : std::string(std::as_const(bytes).data(), end);
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
    const std::string pdu = encodePdu(request, response);
    if (request.version != kVersion3) {
        return sequence(integer(request.version) + octets(request.community) + pdu);
    }
    const std::string header = sequence(integer(request.messageId) + integer(kMaxMessage) +
                                        octets(std::string(1, '\0')) + integer(kUsm));
    const std::string security = sequence(octets(response.engineId) + integer(1) + integer(1) +
                                          octets(request.user) + octets({}) + octets({}));
    const std::string scoped = sequence(octets(response.engineId) + octets({}) + pdu);
    return sequence(integer(kVersion3) + header + octets(security) + scoped);
}

ScriptedAgent::ScriptedAgent(Script script)
    : script_(std::move(script)), socket_(loopbackSocket()), stopEvent_(::eventfd(0, EFD_CLOEXEC)) {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { run(); });
}

void ScriptedAgent::stop() {
    ::eventfd_write(stopEvent_, 1);
    if (thread_.joinable()) {
        thread_.join();
    }
}

ScriptedAgent::~ScriptedAgent() {
    stop();
    ::close(socket_);
    ::close(stopEvent_);
}

void ScriptedAgent::run() {
    while (true) {
        std::array<pollfd, 2> waiting{{{socket_, POLLIN, 0}, {stopEvent_, POLLIN, 0}}};
        ::poll(waiting.data(), waiting.size(), -1);
        if (waiting[0].revents == 0 && waiting[1].revents != 0) {
            return;
        }
        std::array<u_char, 65536> buffer{};
        sockaddr_in peer{};
        socklen_t length = sizeof peer;
        const ssize_t count = ::recvfrom(socket_, buffer.data(), buffer.size(), 0,
                                         reinterpret_cast<sockaddr*>(&peer), &length);
        if (count <= 0) {
            continue;
        }
        AgentRequest request = decodeRequestMessage(buffer.data(), static_cast<std::size_t>(count));
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
            binding.value = {.tag = Tag::noSuchInstance};
        }
    }
    return response;
}

VarBind Mib::following(const Oid& oid) const {
    const auto found = values_.upper_bound(oid);
    return found == values_.end() ? VarBind{oid, {.tag = Tag::endOfMibView}}
                                  : VarBind{found->first, found->second};
}

AgentResponse Mib::getNext(const AgentRequest& request) const {
    AgentResponse response{.bindings = request.bindings};
    std::int32_t index = 0;
    for (VarBind& binding : response.bindings) {
        ++index;
        binding = following(binding.oid);
        if (request.version == 0 && binding.value.tag == Tag::endOfMibView) {
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
    return Oid::parse(text).value();
}

} // namespace onudesk::host::test
