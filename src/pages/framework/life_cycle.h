// SPDX-License-Identifier: MIT
//
// What every window that talks with the host about one item has in common: its handle, its routes,
// Timer1, and the buttons that requests take away and replies give back.
#pragma once

#include "bridge/session.h"
#include "pages/framework/page_rules.h"
#include "pages/framework/write_request.h"
#include "platform/window_messages.h"
#include "window/reply.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <vector>

#include <QAbstractButton>
#include <QTimer>

namespace onudesk {

class LifeCycle final : public platform::WindowReceiver {
public:
    // What only the owner knows.
    struct Steps {
        std::function<void()> prepareRead; // a refresh is about to read: tables, ports
        // A reply, also one that could not be decoded; the buttons are set already.
        std::function<void(const ReadResult& result)> handleReply;
        // The reply to a write, which has to be given back.
        std::function<void(void* reply)> handleWriteReply;
    };

    // Owner and session outlive it; the owner gets Timer1 as a child.
    LifeCycle(QObject& owner, Session& session, std::int32_t itemType, PageRules rules,
              Steps steps);
    // Withdraws the handle and every route that leads to it.
    ~LifeCycle() override;
    LifeCycle(const LifeCycle&) = delete;
    LifeCycle& operator=(const LifeCycle&) = delete;

    [[nodiscard]] Session& session() const { return session_; }
    [[nodiscard]] std::int32_t itemType() const { return itemType_; }
    [[nodiscard]] const PageRules& rules() const { return rules_; }
    // The handle under which replies reach the owner.
    [[nodiscard]] std::uint32_t handle() const { return registration_.handle(); }
    [[nodiscard]] QTimer* timer() const { return timer_; }

    // Given back by Timer1 only, unless the rules say that the completion flag sets it.
    void setRefreshButton(QAbstractButton* button) { refreshButton_ = button; }
    // Disabled by reads, set by replies.
    void addRequestButton(QAbstractButton* button) { requestButtons_.push_back(button); }
    // Disabled by writes.
    void addWriteButton(QAbstractButton* button) { writeButtons_.push_back(button); }
    [[nodiscard]] const std::vector<QAbstractButton*>& requestButtons() const {
        return requestButtons_;
    }

    // Takes the state in which the rules begin, all buttons being there.
    void start();
    // The first read of all, which leaves the buttons as they are.
    void readFirst();
    void refresh();
    void timeOut();

    // The end of a write: registers for the answer and posts.
    void finishWrite(WriteRequest request);
    void disableForWrite();
    void startTimer();

    // Whether the owner shows the reply: decoded, of the group of the rules, with enough values.
    [[nodiscard]] bool isShown(const ReadResult& result) const;
    [[nodiscard]] bool isOfOtherGroup(const ReadResult& result) const;

    void handleMessage(const platform::WindowMessage& message) override;

private:
    void read();
    void handleReadReply(void* reply);
    void enableRequestButtons(bool enabled);
    void enableRefresh(bool enabled);

    Session& session_;
    const std::int32_t itemType_;
    const PageRules rules_;
    const Steps steps_;
    QTimer* timer_;
    QAbstractButton* refreshButton_ = nullptr;
    std::vector<QAbstractButton*> requestButtons_;
    std::vector<QAbstractButton*> writeButtons_;
    const platform::WindowRegistration registration_;
};

} // namespace onudesk
