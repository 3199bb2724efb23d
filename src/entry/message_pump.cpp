// SPDX-License-Identifier: MIT
#include "entry/message_pump.h"

#include "platform/window_messages.h"

#include <QCoreApplication>
#include <QEvent>

namespace onudesk {

namespace {

// Some milliseconds of work, so that painting and input get their turn between the rows of a table.
constexpr std::size_t kMessagesAtOnce = 256;

} // namespace

MessagePump::MessagePump() {
    platform::setWindowMessageWaker([this] { wake(); });
}

MessagePump::~MessagePump() {
    platform::setWindowMessageWaker({});
}

void MessagePump::wake() {
    if (!posted_.exchange(true)) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }
}

bool MessagePump::event(QEvent* event) {
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    // Cleared first: a message posted from now on, or by a handler in a nested loop, wakes again.
    posted_ = false;
    if (platform::dispatchWindowMessages(kMessagesAtOnce)) {
        wake();
    }
    return true;
}

} // namespace onudesk
