// SPDX-License-Identifier: MIT
#include "entry/message_pump.h"

#include "platform/window_messages.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

class Counter : public platform::WindowReceiver {
public:
    void handleMessage(const platform::WindowMessage& /*message*/) override { ++count; }
    std::size_t count = 0;
};

TEST(MessagePump, LeavesTimeForOthersAndForgetsNothing) {
    constexpr std::size_t kRows = 4094;
    MessagePump pump;
    Counter window;
    const platform::WindowRegistration registration(window);
    for (std::size_t row = 0; row < kRows; ++row) {
        ASSERT_TRUE(platform::postWindowMessage(registration.handle(), {1, nullptr, 0, nullptr}));
    }
    std::size_t before = 0;
    QMetaObject::invokeMethod(
        &pump, [&] { before = window.count; }, Qt::QueuedConnection);
    while (platform::pendingWindowMessages() > 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(window.count, kRows);
    EXPECT_GT(before, 0U);
    EXPECT_LT(before, kRows / 4);
}

} // namespace
} // namespace onudesk
