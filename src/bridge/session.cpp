// SPDX-License-Identifier: MIT
#include "bridge/session.h"

#include "onudesk/messages.h"
#include "platform/route_mutex.h"
#include "platform/thread_queue.h"

#include <mutex>

namespace onudesk {

namespace {

void registerRoute(const Session& session, std::uint32_t key, ReplyRoute route) {
    const std::scoped_lock lock(*session.routeTable->mutex);
    session.routeTable->routes.erase(key);
    session.routeTable->routes.emplace(key, route);
}

} // namespace

void startSession(const HolderConfigParam& param, Session& session) {
    copyParam(param, session.context);
    session.OnuIndexText = formatOnuIndex(session.context);
    session.SubIndex = param.subIndex;
    session.PortPending = false;
    session.PendingPortText.clear();
}

void registerReadRoute(const Session& session, std::int32_t itemType, std::uint32_t window) {
    registerRoute(session, routeKey(CP_KIND_READ, itemType), {WM_CODEPARA_READ_REPLY, window});
}

void registerWriteRoute(const Session& session, std::int32_t itemType, std::uint32_t window) {
    registerRoute(session, routeKey(CP_KIND_WRITE, itemType), {WM_CODEPARA_WRITE_REPLY, window});
}

void unregisterWriteRoute(const Session& session, std::int32_t itemType) {
    const std::scoped_lock lock(*session.routeTable->mutex);
    session.routeTable->routes.erase(routeKey(CP_KIND_WRITE, itemType));
}

void unregisterRoutes(const Session& session, std::int32_t itemType) {
    const std::scoped_lock lock(*session.routeTable->mutex);
    session.routeTable->routes.erase(routeKey(CP_KIND_READ, itemType));
    session.routeTable->routes.erase(routeKey(CP_KIND_WRITE, itemType));
}

void unregisterWindow(const Session& session, std::uint32_t window) {
    const std::scoped_lock lock(*session.routeTable->mutex);
    std::erase_if(session.routeTable->routes,
                  [&](const auto& route) { return route.second.window == window; });
}

bool postRequest(const Session& session, CodeParaPtr request) {
    if (!request || !platform::postThreadMessage(session.hostThreadId,
                                                 {WM_CODEPARA_REQUEST, request.get(), 0})) {
        return false;
    }
    static_cast<void>(request.release());
    return true;
}

void BorrowedReply::giveBack() {
    if (reply_ != nullptr) {
        release_(&reply_);
        reply_ = nullptr;
    }
}

} // namespace onudesk
