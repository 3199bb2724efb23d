// SPDX-License-Identifier: MIT
//
// One configuration session: the operator's ONU and the host behind it.
#pragma once

#include "bridge/code_para_access.h"
#include "bridge/session_context.h"
#include "onudesk/reply_routes.h"

#include <cstdint>
#include <string>

namespace onudesk {

// Lives from the start to the end of one ShowHolderConfigForm call; user-interface thread only.
// The table and the callback are the host's.
struct Session {
    SessionContext context;
    std::uint32_t hostThreadId = 0;
    ReplyRouteTable* routeTable = nullptr;
    ReleaseCodeParaFn releaseFn = nullptr;

    std::string OnuIndexText;
    std::int32_t SubIndex = -1;
    // Set by port-scoped pages for their next read only.
    bool PortPending = false;
    std::string PendingPortText;
};

// Fills context, OnuIndexText and SubIndex from the block and clears the port segment.
void startSession(const HolderConfigParam& param, Session& session);

// Each waits for the table's mutex, changes the table and releases the mutex.
// A registration first erases every route with the same key.
void registerReadRoute(const Session& session, std::int32_t itemType, std::uint32_t window);
void registerWriteRoute(const Session& session, std::int32_t itemType, std::uint32_t window);
void unregisterWriteRoute(const Session& session, std::int32_t itemType);
void unregisterRoutes(const Session& session, std::int32_t itemType);
// Erases whatever routes lead to a window that is about to vanish.
void unregisterWindow(const Session& session, std::uint32_t window);

// Hands the request to the host thread. When the host cannot take it, the request is destroyed and
// the result is false.
bool postRequest(const Session& session, CodeParaPtr request);

// A reply borrowed from the host for the duration of one handler; goes back exactly once, at the
// latest on destruction. A null reply goes nowhere.
class BorrowedReply {
public:
    BorrowedReply(const Session& session, void* reply)
        : release_(session.releaseFn), reply_(static_cast<CodeParaReply*>(reply)) {}
    ~BorrowedReply() { giveBack(); }
    BorrowedReply(const BorrowedReply&) = delete;
    BorrowedReply& operator=(const BorrowedReply&) = delete;

    explicit operator bool() const { return reply_ != nullptr; }
    [[nodiscard]] CodeParaReader reader() const {
        return CodeParaReader(reply_ == nullptr ? nullptr : reply_->entries);
    }
    void giveBack();

private:
    ReleaseCodeParaFn release_;
    CodeParaReply* reply_;
};

} // namespace onudesk
