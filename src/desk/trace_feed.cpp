// SPDX-License-Identifier: MIT
#include "desk/trace_feed.h"

#include "host/trace.h"

#include <utility>

#include <QMetaObject>
#include <QTime>

namespace onudesk::desk {

namespace {

// A value may have 64 KB; nobody reads that far.
constexpr qsizetype kMaxLineLength = 4096;

QString stamped(QString line) {
    // Characters at which text views break lines although JSON lets them stand.
    line.replace(QChar(QChar::LineSeparator), QStringLiteral("\\u2028"));
    line.replace(QChar(QChar::ParagraphSeparator), QStringLiteral("\\u2029"));
    if (line.size() > kMaxLineLength) {
        line.truncate(kMaxLineLength);
        line += QStringLiteral("…");
    }
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")) + QStringLiteral("  ") +
           line;
}

QString outcome(const host::ReplyRecord& reply) {
    const QString item = QObject::tr("Item %1: ").arg(reply.itemType);
    if (!reply.error.text.empty()) {
        return item + QString::fromStdString(reply.error.text);
    }
    return item +
           (reply.kind == host::RequestKind::read ? QObject::tr("read") : QObject::tr("written"));
}

} // namespace

TraceFeed::TraceFeed(std::function<void()> onEntries) : onEntries_(std::move(onEntries)) {}

void TraceFeed::post(TraceEntry entry) {
    const std::scoped_lock lock(mutex_);
    if (entries_.empty()) {
        QMetaObject::invokeMethod(&context_, onEntries_, Qt::QueuedConnection);
    }
    entries_.push_back(std::move(entry));
    if (entries_.size() > kMaxEntries) {
        entries_.pop_front();
    }
}

std::deque<TraceEntry> TraceFeed::take() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(entries_, {});
}

host::EngineObserver traceObserver(TraceFeed& feed, const host::SecretMask& mask) {
    return {
        .onRequest =
            [&feed, mask](const host::RequestRecord& request) {
                feed.post({stamped(host::traceLine(mask.apply(host::traceObject(request)))), {}});
            },
        .onReply =
            [&feed, mask](const host::ReplyRecord& reply) {
                feed.post({stamped(host::traceLine(mask.apply(host::traceObject(reply)))),
                           mask.applyToText(outcome(reply))});
            }};
}

} // namespace onudesk::desk
