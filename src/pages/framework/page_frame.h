// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QHBoxLayout>

namespace onudesk {

// The panels of a page and how they fill its frame: controls above, a row of buttons centred at the
// lower edge; or one panel with both that stays centred in the frame.
class PageFrame : public QFrame {
    Q_OBJECT
public:
    explicit PageFrame(QWidget* parent);

    void FrameResize();

protected:
    QFrame* listPanel;   // controls
    QFrame* bottomPanel; // buttons

    // Puts the buttons below what is put into the returned widget, into one panel that stays
    // centred.
    [[nodiscard]] QWidget* centredPanel();
    [[nodiscard]] QHBoxLayout& buttonRow() const { return *buttonRow_; }
    // Gives the buttons their room, and tabs the order of the panels. Call it when all controls are
    // there.
    void finishLayout();

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QHBoxLayout* buttonRow_;
    QFrame* panel_ = nullptr; // the centred panel, when there is one
};

} // namespace onudesk
