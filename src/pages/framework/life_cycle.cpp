// SPDX-License-Identifier: MIT
#include "pages/framework/life_cycle.h"

#include "onudesk/messages.h"
#include "onudesk/window_names.h"
#include "window/request.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kTimerMilliseconds = 4000;

} // namespace

LifeCycle::LifeCycle(QObject& owner, Session& session, std::int32_t itemType, PageRules rules,
                     Steps steps)
    : session_(session), itemType_(itemType), rules_(std::move(rules)), steps_(std::move(steps)),
      timer_(new QTimer(&owner)), registration_(*this) {
    timer_->setObjectName(QLatin1String(window_names::kButtonTimer));
    timer_->setTimerType(Qt::PreciseTimer); // a coarse one may fire early
    timer_->setInterval(kTimerMilliseconds);
    QObject::connect(timer_, &QTimer::timeout, timer_, [this] { timeOut(); });
}

LifeCycle::~LifeCycle() {
    unregisterWindow(session_, handle());
    timer_->disconnect(); // the owner's children live longer
}

void LifeCycle::start() {
    if (rules_.start == StartState::waiting) {
        enableRequestButtons(false);
        enableRefresh(false);
        startTimer();
    }
}

void LifeCycle::read() {
    registerReadRoute(session_, itemType_, handle());
    if (steps_.prepareRead) {
        steps_.prepareRead();
    }
    sendReadRequest(session_, itemType_);
}

void LifeCycle::readFirst() {
    registerReadRoute(session_, itemType_, handle());
    sendReadRequest(session_, itemType_);
    // Making the owner took its time: a further read keeps its distance from this one.
    if (timer_->isActive()) {
        timer_->start();
    }
}

void LifeCycle::refresh() {
    enableRequestButtons(false);
    enableRefresh(false);
    read();
    startTimer(); // at last, so that preparing does not bring the next read nearer
}

void LifeCycle::timeOut() {
    enableRefresh(true);
    timer_->stop();
}

void LifeCycle::startTimer() {
    // A running timer keeps its time: refreshBtn comes back when it was going to.
    if (!timer_->isActive()) {
        timer_->start();
    }
}

void LifeCycle::handleMessage(const platform::WindowMessage& message) {
    if (message.number == WM_CODEPARA_READ_REPLY) {
        handleReadReply(message.payload);
    } else if (message.number == WM_CODEPARA_WRITE_REPLY) {
        steps_.handleWriteReply(message.payload);
    }
}

void LifeCycle::handleReadReply(void* reply) {
    const ReadResult result = readDecode(session_, reply);
    if (result.success) {
        enableRequestButtons(rules_.onDecoded == OnDecoded::enables || result.completed);
        if (rules_.flagSetsRefresh) {
            enableRefresh(result.completed);
        }
    } else if (rules_.onFailedDecode != OnFailedDecode::leaves) {
        enableRequestButtons(rules_.onFailedDecode == OnFailedDecode::enables);
    }
    steps_.handleReply(result);
}

bool LifeCycle::isOfOtherGroup(const ReadResult& result) const {
    return result.success && !rules_.resultText.empty() && result.resultText != rules_.resultText;
}

bool LifeCycle::isShown(const ReadResult& result) const {
    return result.success && !isOfOtherGroup(result) &&
           result.values.size() >= rules_.minimumValues;
}

void LifeCycle::disableForWrite() {
    for (QAbstractButton* button : writeButtons_) {
        button->setEnabled(false);
    }
}

void LifeCycle::finishWrite(WriteRequest request) {
    registerWriteRoute(session_, itemType_, handle());
    request.post();
}

void LifeCycle::enableRequestButtons(bool enabled) {
    for (QAbstractButton* button : requestButtons_) {
        button->setEnabled(enabled);
    }
}

void LifeCycle::enableRefresh(bool enabled) {
    if (refreshButton_ != nullptr) {
        refreshButton_->setEnabled(enabled);
    }
}

} // namespace onudesk
