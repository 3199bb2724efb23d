// SPDX-License-Identifier: MIT
#include "host/client_host.h"

#include "base/endpoint.h"
#include "base/numbers.h"
#include "env/client_paths.h"
#include "onudesk/exports.h"
#include "platform/files.h"
#include "platform/window_messages.h"
#include "snmp/object_schema.h"

#include <algorithm>
#include <span>
#include <system_error>
#include <utility>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netdb.h>

namespace onudesk::host {

namespace {

namespace fs = std::filesystem;

constexpr std::uint16_t kSnmpPort = 161;

// The bytes that fit, with a terminator after them.
void copyText(const std::string& text, std::span<char> field) {
    const std::size_t length = std::min(text.size(), field.size() - 1);
    std::copy_n(text.begin(), length, field.begin());
    field[length] = '\0';
}

Result<std::string> resolveHost(const std::string& host) {
    if (isIpv4Address(host)) {
        return host;
    }
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    const int outcome = ::getaddrinfo(host.c_str(), nullptr, &hints, &found);
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> list(found, &::freeaddrinfo);
    if (outcome != 0) {
        return Error{"agent " + host + ": " + ::gai_strerror(outcome)};
    }
    const auto* internet = reinterpret_cast<const sockaddr_in*>(list->ai_addr);
    return addressText(ntohl(internet->sin_addr.s_addr));
}

} // namespace

HolderConfigParam makeParam(const OnuTarget& target) {
    HolderConfigParam param{};
    copyText(target.agentAddress, param.agentAddress);
    param.snmpPort = target.port;
    param.snmpVersion = static_cast<std::int32_t>(target.version);
    copyText(target.readCommunity, param.readCommunity);
    copyText(target.writeCommunity, param.writeCommunity);
    copyText(target.menuFileName, param.menuFileName);
    param.oltNumber = target.oltNumber;
    param.ponNumber = target.ponNumber;
    param.onuNumber = target.onuNumber;
    param.subIndex = target.subIndex;
    param.subUnitItemType = target.subUnitItemType;
    copyText(target.rootCaption, param.rootCaption);
    param.localeId = target.localeId;
    return param;
}

bool parseOnuIndex(const std::string& text, OnuTarget& target) {
    std::int32_t numbers[] = {-1, -1, -1};
    std::string_view rest = text;
    for (std::int32_t& number : numbers) {
        const auto dot = rest.find('.');
        number = parseNumber<std::int32_t>(rest.substr(0, dot)).value_or(-1);
        if (number < 0) {
            return false;
        }
        if (dot == std::string_view::npos) {
            rest = {};
            break;
        }
        rest.remove_prefix(dot + 1);
        if (&number == std::end(numbers) - 1) {
            return false;
        }
    }
    target.oltNumber = numbers[0];
    target.ponNumber = numbers[1];
    target.onuNumber = numbers[2];
    return true;
}

Result<void> parseAgent(const std::string& text, OnuTarget& target) {
    const std::optional<Endpoint> agent = parseEndpoint(text, kSnmpPort);
    if (!agent || agent->port == 0) {
        return Error{"agent " + text + ": the port must be a number from 1 to 65535"};
    }
    Result<std::string> address = resolveHost(agent->host);
    if (!address) {
        return Error{address.error()};
    }
    target.agentAddress = *address;
    target.port = agent->port;
    return {};
}

LaunchOptions demoAgent(const fs::path& clientDirectory) {
    return {.program = clientDirectory / "bin" / "onusim",
            .access = clientDirectory / "demo" / "demo.access",
            .catalogue = clientDirectory / "CONF" / "snmp" / "snmpconfig.xml",
            .recording = clientDirectory / "demo" / "demo.snmprec",
            .arguments = {}};
}

void useDemoAccess(OnuTarget& target) {
    target.readCommunity = "public";
    target.writeCommunity = "private";
    target.v3 = {.user = "admin",
                 .level = SecurityLevel::authPriv,
                 .authProtocol = AuthProtocol::sha,
                 .authPassphrase = "demo-auth-phrase",
                 .privProtocol = PrivProtocol::des,
                 .privPassphrase = "demo-priv-phrase"};
}

fs::path ownClientDirectory() {
    return clientRoot();
}

void ClientHost::CloseLibrary::operator()(void* library) const {
    ::dlclose(library);
}

Result<std::unique_ptr<ClientHost>> ClientHost::open(const fs::path& clientDirectory,
                                                     const EngineOptions& options) {
    std::error_code error;
    const fs::path directory = fs::canonical(clientDirectory, error);
    if (!error) {
        fs::current_path(directory / "bin", error);
    }
    if (error) {
        return Error{clientDirectory.string() + ": is no client directory: " + error.message()};
    }
    platform::setHostFileName((directory / "bin" / "onudesk").string());
    const auto catalogueFile = platform::resolveClientPath(kCatalogueFile);
    if (!catalogueFile) {
        return Error{directory.string() + ": has no CONF/snmp/snmpconfig.xml"};
    }
    Result<CatalogueSchema> catalogue = loadSchema(*catalogueFile);
    if (!catalogue) {
        return Error{catalogue.error()};
    }
    auto host = std::unique_ptr<ClientHost>(new ClientHost);
    host->directory_ = directory;
    host->plugin_.reset(
        ::dlopen((directory / "bin" / kPluginFileName).c_str(), RTLD_LAZY | RTLD_LOCAL));
    if (!host->plugin_ || ::dlsym(host->plugin_.get(), kShowHolderConfigForm) == nullptr) {
        return Error{std::string(::dlerror())};
    }
    host->secretObjects_ = onudesk::secretObjects(*catalogue);
    host->engine_ = std::make_unique<SnmpEngine>(std::move(catalogue).value(), options);
    return host;
}

ClientHost::~ClientHost() {
    if (engine_) {
        engine_->stop();
    }
}

void ClientHost::show(QApplication& application, const OnuTarget& target) {
    const HolderConfigParam param = makeParam(target);
    engine_->setV3Defaults(target.v3);
    const auto showForm =
        reinterpret_cast<ShowHolderConfigFormFn>(::dlsym(plugin_.get(), kShowHolderConfigForm));
    showForm(&application, engine_->routeTable(), &param, engine_->hostThreadId(), &releaseReply);
    engine_->endSession();
}

bool ClientHost::quiet() const {
    return engine_->outstanding() == 0 && platform::waitingWindowMessages() == 0;
}

} // namespace onudesk::host
