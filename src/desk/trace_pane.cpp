// SPDX-License-Identifier: MIT
#include "desk/trace_pane.h"

#include "desk/trace_feed.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace onudesk::desk {

TracePane::TracePane(QWidget* parent)
    : QDockWidget(tr("Trace"), parent), traceMemo(new QPlainTextEdit(this)),
      clearBtn(new QPushButton(tr("C&lear"), this)), pauseBtn(new QPushButton(tr("&Pause"), this)) {
    setObjectName(QStringLiteral("tracePane"));
    traceMemo->setObjectName(QStringLiteral("traceMemo"));
    traceMemo->setAccessibleName(tr("Requests and replies"));
    traceMemo->setReadOnly(true);
    traceMemo->setLineWrapMode(QPlainTextEdit::NoWrap);
    traceMemo->setMaximumBlockCount(static_cast<int>(TraceFeed::kMaxEntries));
    traceMemo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    traceMemo->setPlaceholderText(tr("Requests and replies appear here."));
    clearBtn->setObjectName(QStringLiteral("clearBtn"));
    pauseBtn->setObjectName(QStringLiteral("pauseBtn"));
    pauseBtn->setCheckable(true);
    connect(clearBtn, &QPushButton::clicked, this, &TracePane::clear);
    connect(pauseBtn, &QPushButton::toggled, this, &TracePane::pause);

    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(pauseBtn);
    buttons->addWidget(clearBtn);
    column->addWidget(traceMemo);
    column->addLayout(buttons);
    setWidget(body);
}

void TracePane::addLines(const std::deque<QString>& lines) {
    if (!pauseBtn->isChecked()) {
        for (const QString& line : lines) {
            traceMemo->appendPlainText(line);
        }
        return;
    }
    waiting_.insert(waiting_.end(), lines.begin(), lines.end());
    while (waiting_.size() > TraceFeed::kMaxEntries) {
        waiting_.pop_front();
    }
}

void TracePane::pause(bool paused) {
    if (!paused) {
        addLines(std::exchange(waiting_, {}));
    }
}

void TracePane::clear() {
    waiting_.clear();
    traceMemo->clear();
}

} // namespace onudesk::desk
