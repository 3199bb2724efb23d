// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

#include <QObject>

namespace onudesk {

// Delivers window messages from the event loop of the thread that made it, nested loops of modal
// windows included, for as long as it lives. A flood of messages leaves the loop time for others.
class MessagePump : public QObject {
    Q_OBJECT
public:
    MessagePump();
    ~MessagePump() override;
    MessagePump(const MessagePump&) = delete;
    MessagePump& operator=(const MessagePump&) = delete;

    bool event(QEvent* event) override;

private:
    void wake();

    std::atomic_bool posted_ = false;
};

} // namespace onudesk
