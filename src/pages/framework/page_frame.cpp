// SPDX-License-Identifier: MIT
#include "pages/framework/page_frame.h"

#include "pages/framework/controls.h"
#include "pages/framework/title_bar.h"

#include <QEvent>
#include <QVBoxLayout>

namespace onudesk {

namespace {

const QColor kPageColour(232, 240, 247);

} // namespace

PageFrame::PageFrame(QWidget* parent)
    : QFrame(parent), listPanel(new QFrame(this)), bottomPanel(new QFrame(this)),
      buttonRow_(new QHBoxLayout(bottomPanel)) {
    paintPlain(*this, kPageColour);
    listPanel->setObjectName(QStringLiteral("listPanel"));
    bottomPanel->setObjectName(QStringLiteral("bottomPanel"));
}

QWidget* PageFrame::centredPanel() {
    panel_ = new QFrame(this);
    panel_->setObjectName(QStringLiteral("Panel1"));
    auto* column = new QVBoxLayout(panel_);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(listPanel, 1);
    column->addWidget(bottomPanel, 0, Qt::AlignHCenter);
    return listPanel;
}

void PageFrame::finishLayout() {
    bottomPanel->adjustSize();
    tabThrough(*listPanel, *buttonRow_);
}

void PageFrame::FrameResize() {
    if (panel_ != nullptr) {
        const QSize size = panel_->sizeHint().boundedTo(this->size());
        panel_->setGeometry({{(width() - size.width()) / 2, (height() - size.height()) / 2}, size});
        return;
    }
    // Beside the tree a page starts one pixel right of it; the area to centre in starts at the
    // tree.
    const int area = width() + (x() > 0 ? 1 : 0);
    const QSize bottom = bottomPanel->size();
    listPanel->setGeometry(0, 0, width(), height() - bottom.height());
    bottomPanel->move((area - bottom.width()) / 2, height() - bottom.height());
}

bool PageFrame::event(QEvent* event) {
    // A text that grew makes the centred panel wider.
    if (event->type() == QEvent::LayoutRequest) {
        FrameResize();
    }
    return QFrame::event(event);
}

void PageFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    FrameResize();
}

} // namespace onudesk
