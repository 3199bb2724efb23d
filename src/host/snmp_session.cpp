// SPDX-License-Identifier: MIT
#include "host/snmp_session.h"

#include "base/endpoint.h"
#include "host/wire_pdu.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <net-snmp/library/large_fd_set.h>
#include <net-snmp/library/lcd_time.h>

namespace onudesk::host {

namespace {

// Its own bookkeeping ends a request; the library only has to outlast it.
constexpr long kLibraryTimeout = 3600L * 1000 * 1000;
constexpr std::size_t kMaxDatagram = 65536;

class ReadableSet {
public:
    explicit ReadableSet(int descriptor) {
        netsnmp_large_fd_set_init(&set_, FD_SETSIZE);
        NETSNMP_LARGE_FD_ZERO(&set_);
        netsnmp_large_fd_setfd(descriptor, &set_);
    }
    ~ReadableSet() { netsnmp_large_fd_set_cleanup(&set_); }
    ReadableSet(const ReadableSet&) = delete;
    ReadableSet& operator=(const ReadableSet&) = delete;
    netsnmp_large_fd_set* get() { return &set_; }

private:
    netsnmp_large_fd_set set_{};
};

// Called by the library; callback_magic is the session's sink. A first "not in time window" report
// does not get here as a message: the library sets its clock by it and sends once more.
int onLibraryAnswer(int operation, netsnmp_session* session, int, netsnmp_pdu* pdu, void* magic) {
    if (operation == NETSNMP_CALLBACK_OP_RECEIVED_MESSAGE && pdu != nullptr) {
        static_cast<AnswerSink*>(session->callback_magic)
            ->onAnswer(reinterpret_cast<std::uintptr_t>(magic), fromLibraryPdu(*pdu));
    }
    return 1;
}

std::string libraryError(netsnmp_session& session) {
    int systemError = 0;
    int libraryErrorNumber = 0;
    char* text = nullptr;
    snmp_error(&session, &systemError, &libraryErrorNumber, &text);
    std::string result = text == nullptr ? std::string("unknown reason") : std::string(text);
    SNMP_FREE(text);
    return result;
}

// Answers from anywhere else never reach the session then, and a closed port is noticed.
bool prepareSocket(int descriptor, std::uint32_t address, std::uint16_t port) {
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    peer.sin_port = htons(port);
    peer.sin_addr.s_addr = htonl(address);
    return ::fcntl(descriptor, F_SETFL, O_NONBLOCK) == 0 &&
           ::fcntl(descriptor, F_SETFD, FD_CLOEXEC) == 0 &&
           ::connect(descriptor, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) == 0;
}

} // namespace

SnmpSession::SnmpSession(const SessionSettings& settings)
    : settings_(settings), keys_(settings.v3), engineId_(settings.v3.engineId) {}

SnmpSession::~SnmpSession() = default;

void SnmpSession::Close::operator()(void* handle) const noexcept {
    snmp_sess_close(handle);
}

Result<std::unique_ptr<SnmpSession>> SnmpSession::open(const SessionSettings& settings,
                                                       AnswerSink& sink) {
    std::unique_ptr<SnmpSession> session(new SnmpSession(settings));
    std::string peer = "udp:" + Endpoint{addressText(settings.address), settings.port}.text();
    std::string community = settings.community;
    netsnmp_session wanted;
    snmp_sess_init(&wanted);
    wanted.version = static_cast<long>(settings.version);
    wanted.peername = peer.data();
    wanted.timeout = kLibraryTimeout;
    wanted.retries = 0;
    wanted.callback = onLibraryAnswer;
    wanted.callback_magic = &sink;
    wanted.flags |= SNMP_FLAGS_DONT_PROBE;
    if (settings.version != SnmpVersion::v3) {
        wanted.community = reinterpret_cast<u_char*>(community.data());
        wanted.community_len = community.size();
    }
    session->handle_.reset(snmp_sess_open(&wanted));
    if (!session->handle_) {
        return Error{libraryError(wanted)};
    }
    // Opening clears the flag; without it the library would wait for the engine id on every send.
    snmp_sess_session(session->handle_.get())->flags |= SNMP_FLAGS_DONT_PROBE;
    if (!prepareSocket(session->socket(), settings.address, settings.port)) {
        return Error{std::strerror(errno)};
    }
    return session;
}

int SnmpSession::socket() const {
    return snmp_sess_transport(handle_.get())->sock;
}

bool SnmpSession::needsProbe() const {
    return settings_.version == SnmpVersion::v3 && engineId_.empty();
}

void SnmpSession::setEngine(const std::string& engineId) {
    engineId_ = engineId;
}

void SnmpSession::forgetEngine() {
    if (settings_.version == SnmpVersion::v3 && !engineId_.empty()) {
        free_enginetime(reinterpret_cast<u_char*>(engineId_.data()), engineId_.size());
        engineId_ = settings_.v3.engineId;
    }
}

// The user stays when the same engine is found again, for answers may still be on their way.
void SnmpSession::activateUser() {
    if (settings_.version != SnmpVersion::v3 || (engineId_.empty() && !user_)) {
        return;
    }
    if (!engineId_.empty() && userEngineId_ != engineId_) {
        user_ = std::make_unique<UsmUser>(settings_.v3, keys_, engineId_);
        userEngineId_ = engineId_;
    }
    user_->makeCurrent();
}

Result<void> SnmpSession::send(const Pdu& pdu, Protection protection, std::uint64_t message,
                               std::chrono::milliseconds lifetime) {
    PduPtr wire = makeLibraryPdu(pdu, settings_.version, protection);
    if (!wire) {
        return Error{"a value cannot be encoded"};
    }
    wire->flags |= UCD_MSG_FLAG_PDU_TIMEOUT;
    wire->time = static_cast<u_long>(std::chrono::ceil<std::chrono::seconds>(lifetime).count());
    if (settings_.version == SnmpVersion::v3) {
        setSecurity(*wire, settings_.v3, engineId_, protection);
        activateUser();
    }
    noteSocketError();
    void* const magic = reinterpret_cast<void*>(message); // NOLINT(performance-no-int-to-ptr)
    if (snmp_sess_async_send(handle_.get(), wire.get(), onLibraryAnswer, magic) == 0) {
        return Error{libraryError(*snmp_sess_session(handle_.get()))};
    }
    static_cast<void>(wire.release());
    return {};
}

// An earlier message to a closed port must not make the next one fail.
void SnmpSession::noteSocketError() {
    int error = 0;
    socklen_t length = sizeof error;
    if (::getsockopt(socket(), SOL_SOCKET, SO_ERROR, &error, &length) == 0 &&
        error == ECONNREFUSED) {
        refused_ = true;
    }
}

std::unique_ptr<UsmUser> SnmpSession::userForUnknownEngine() const {
    std::array<u_char, kMaxDatagram> message{};
    const ssize_t length =
        user_ ? ::recv(socket(), message.data(), message.size(), MSG_PEEK) : ssize_t{-1};
    if (length <= 0) {
        return nullptr;
    }
    const std::string engineId = senderEngine(message.data(), static_cast<std::size_t>(length));
    if (engineId.empty() || engineId == userEngineId_) {
        return nullptr;
    }
    auto user = std::make_unique<UsmUser>(settings_.v3, keys_, engineId);
    user->makeCurrent();
    return user;
}

void SnmpSession::receive() {
    noteSocketError();
    activateUser();
    const std::unique_ptr<UsmUser> unknownEngine = userForUnknownEngine();
    ReadableSet readable(socket());
    if (snmp_sess_read2(handle_.get(), readable.get()) == 0) {
        refused_ = false;
    }
}

void SnmpSession::expire() {
    snmp_sess_timeout(handle_.get());
}

} // namespace onudesk::host
