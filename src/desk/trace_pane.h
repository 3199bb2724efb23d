// SPDX-License-Identifier: MIT
#pragma once

#include <deque>

#include <QDockWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>

namespace onudesk::desk {

// The trace as read-only text, one line per request and reply, the oldest lines dropped.
class TracePane : public QDockWidget {
public:
    explicit TracePane(QWidget* parent);

    QPlainTextEdit* traceMemo;
    QPushButton* clearBtn;
    QPushButton* pauseBtn; // checked: new lines wait until it is not any more

    void addLines(const std::deque<QString>& lines);

private:
    void pause(bool paused);
    void clear();

    std::deque<QString> waiting_;
};

} // namespace onudesk::desk
