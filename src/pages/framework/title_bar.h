// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include <QColor>
#include <QFrame>
#include <QLabel>
#include <QPoint>

namespace onudesk {

// The title bar that a borderless window draws for itself: TitlePanel with TitleLabel and, at its
// right end, ClosePanel. Pressing the left button on the title drags the window; the close panel is
// red while the mouse is over it.
class TitleBar : public QFrame {
    Q_OBJECT
public:
    // `normal` is the colour of both panels. The window is the parent.
    TitleBar(QWidget* window, const QColor& normal);

    QLabel* TitleLabel;
    QLabel* ClosePanel;

    // Called by a click on the close panel.
    std::function<void()> onClose;

    static constexpr int kHeight = 24;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void colourClosePanel(const QColor& colour);

    QColor normal_;
    std::optional<QPoint> grip_; // of the mouse in the window, while it is dragged
};

// Fills the widget with a plain colour.
void paintPlain(QWidget& widget, const QColor& colour);

} // namespace onudesk
