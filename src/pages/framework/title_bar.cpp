// SPDX-License-Identifier: MIT
#include "pages/framework/title_bar.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QWindow>

namespace onudesk {

namespace {

constexpr int kCloseWidth = 23;
constexpr int kTitleMargin = 6;
const QColor kHot(255, 0, 0);

} // namespace

void paintPlain(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, colour);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

TitleBar::TitleBar(QWidget* window, const QColor& normal)
    : QFrame(window), TitleLabel(new QLabel(this)),
      ClosePanel(new QLabel(QStringLiteral("X"), this)), normal_(normal) {
    setObjectName(QStringLiteral("TitlePanel"));
    setFixedHeight(kHeight);
    setMouseTracking(true);
    paintPlain(*this, normal_);
    TitleLabel->setObjectName(QStringLiteral("TitleLabel"));
    TitleLabel->setTextFormat(Qt::PlainText);
    TitleLabel->setMouseTracking(true);
    ClosePanel->setObjectName(QStringLiteral("ClosePanel"));
    ClosePanel->setFixedSize(kCloseWidth, kHeight);
    ClosePanel->setAlignment(Qt::AlignCenter);
    ClosePanel->setMouseTracking(true);
    QFont bold = font();
    bold.setBold(true);
    ClosePanel->setFont(bold);
    QPalette white = ClosePanel->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    ClosePanel->setPalette(white);
    colourClosePanel(normal_);
    ClosePanel->installEventFilter(this);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kTitleMargin, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(TitleLabel, 1);
    row->addWidget(ClosePanel);
}

bool TitleBar::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return true; // a press here must not start dragging
    case QEvent::MouseMove:
        colourClosePanel(kHot);
        return true;
    case QEvent::Leave:
        colourClosePanel(normal_);
        break;
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && onClose &&
            ClosePanel->rect().contains(mouse->position().toPoint())) {
            onClose();
        }
        return true;
    }
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

void TitleBar::mousePressEvent(QMouseEvent* event) {
    QWindow* const native = window()->windowHandle();
    if (event->button() != Qt::LeftButton || (native != nullptr && native->startSystemMove())) {
        return;
    }
    // Where no window manager moves windows, the bar does it.
    grip_ = event->globalPosition().toPoint() - window()->pos();
}

void TitleBar::mouseMoveEvent(QMouseEvent* event) {
    colourClosePanel(normal_);
    if (grip_) {
        window()->move(event->globalPosition().toPoint() - *grip_);
    }
}

void TitleBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
    grip_.reset();
}

void TitleBar::colourClosePanel(const QColor& colour) {
    paintPlain(*ClosePanel, colour);
}

} // namespace onudesk
