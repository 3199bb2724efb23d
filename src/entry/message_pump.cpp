// SPDX-License-Identifier: MIT
#include "entry/message_pump.h"

#include "platform/window_messages.h"

#include <QCoreApplication>
#include <QEvent>

namespace onudesk {

MessagePump::MessagePump() {
    platform::setWindowMessageWaker([this] {
        if (!posted_.exchange(true)) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        }
    });
}

MessagePump::~MessagePump() {
    platform::setWindowMessageWaker({});
}

bool MessagePump::event(QEvent* event) {
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    // Cleared first: a message posted from now on, or by a handler in a nested loop, wakes again.
    posted_ = false;
    platform::dispatchWindowMessages();
    return true;
}

} // namespace onudesk
