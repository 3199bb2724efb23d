// SPDX-License-Identifier: MIT
#include "sim/models/port.h"

namespace onudesk::sim {

namespace {

constexpr std::int64_t kFecSupported = 2;
constexpr std::int64_t kShutDown = 2;
constexpr std::int64_t kTcpServer = 2;

} // namespace

SetResult writeFec(const GroupWrite& write, Device& device) {
    DeviceGroup fec = device.group(616, "maintable");
    if (fec.find("onuFecMode", write.instance()) == nullptr) {
        return SetStatus::noCreation;
    }
    if (fec.number("onuFecSupport", write.instance()) != kFecSupported) {
        return SetStatus::inconsistentValue;
    }
    fec.putNumber("onuFecMode", write.instance(), write.number("onuFecMode").value_or(0));
    return {};
}

SetResult writeEncryption(const GroupWrite& write, Device& device) {
    DeviceGroup encryption = device.group(649, "maintable");
    if (encryption.find("onuEncrypEnable", write.instance()) == nullptr) {
        return SetStatus::noCreation;
    }
    const std::int64_t enable = write.number("onuEncrypEnable").value_or(0);
    if (enable != 0 && encryption.number("onuEncrypState", write.instance()) != 0) {
        return SetStatus::inconsistentValue;
    }
    encryption.putNumber("onuEncrypEnable", write.instance(), enable);
    return {};
}

SetResult writePortStatus(const GroupWrite& write, Device& device) {
    DeviceGroup ports = device.group(617, "maintable");
    const Oid& port = write.instance();
    if (ports.find("lanState", port) == nullptr) {
        return SetStatus::noCreation;
    }
    const bool wasShutDown = ports.number("lanShutDown", port) == kShutDown;
    for (const char* setting : {"lanFlowControl", "lanShutDown", "lanautoNeg"}) {
        if (const auto number = write.number(setting)) {
            ports.putNumber(setting, port, *number);
        }
    }
    if (ports.number("lanShutDown", port) == kShutDown) {
        ports.putNumber("lanState", port, 0);
    } else if (wasShutDown) {
        const bool advertises =
            ports.bytes("lanAdv", port).find_first_not_of('0') != std::string::npos;
        ports.putNumber("lanState", port, advertises ? 1 : 0);
    }
    return {};
}

SetResult writeComSession(const GroupWrite& write, Device& device) {
    DeviceGroup sessions = device.group(763, "maintable");
    const Oid& port = write.instance();
    if (sessions.find("ComID", port) == nullptr) {
        return SetStatus::noCreation;
    }
    const auto status = write.number("ComSessionRowStatus");
    const bool has = sessions.number("ComSessionType", port) != 0;
    if (status == rowStatusCode(RowStatus::destroy)) {
        if (!has) {
            return SetStatus::inconsistentValue;
        }
        for (const char* setting : {"ComSessionType", "ComSessionPort"}) {
            sessions.putNumber(setting, port, 0);
        }
        sessions.put("ComSessionDestIP", port, {Tag::ipAddress, std::string(4, '\0')});
        return {};
    }
    if (status != rowStatusCode(RowStatus::createAndGo)) {
        return SetStatus::inconsistentValue;
    }
    const std::int64_t type = write.number("ComSessionType").value_or(0);
    const bool needsAddress = type != kTcpServer;
    if (has || type == 0 || write.number("ComSessionPort").value_or(0) == 0 ||
        (needsAddress && write.find("ComSessionDestIP") == nullptr)) {
        return SetStatus::inconsistentValue;
    }
    for (const char* setting :
         {"ComSessionType", "ComSessionDestIP", "ComSessionPort", "ComSessionBaudrate",
          "ComSessionParitytype", "ComSessionDatabits", "ComSessionStopbits"}) {
        if (const Value* value = write.find(setting)) {
            sessions.put(setting, port, *value);
        }
    }
    for (const char* counter : {"ComSessionBytesReceived", "ComSessionBytesSent"}) {
        sessions.put(counter, port, {Tag::counter32, std::uint64_t{0}});
    }
    return {};
}

} // namespace onudesk::sim
