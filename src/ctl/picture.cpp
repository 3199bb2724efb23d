// SPDX-License-Identifier: MIT
#include "ctl/picture.h"

#include "ctl/control_finder.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QList>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <vector>

namespace onudesk::ctl {

namespace {

// More than any form has nested layouts: a pass lays out one, and asks for the one around it.
constexpr int kLayoutPasses = 8;

// Lays out what the values changed; handlers must not run here.
void layOut() {
    for (int pass = 0; pass < kLayoutPasses; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

// Paints the widget with everything in it, also a list that waits for more rows to come.
QPixmap pictureOf(QWidget& widget) {
    QList<QWidget*> paused = widget.findChildren<QWidget*>();
    paused.removeIf([](const QWidget* child) {
        return !child->testAttribute(Qt::WA_ForceUpdatesDisabled); // its own doing
    });
    for (QWidget* child : paused) {
        child->setUpdatesEnabled(true);
    }
    QPixmap picture = widget.grab();
    for (QWidget* child : paused) {
        child->setUpdatesEnabled(false);
    }
    return picture;
}

} // namespace

bool savePicture(QWidget& window, const std::string& file) {
    window.setUpdatesEnabled(true);
    layOut();
    std::vector<QWidget*> shown = {&window};
    for (QDialog* dialog : dialogsBefore(&window)) {
        shown.push_back(dialog);
    }
    QRect area;
    for (const QWidget* widget : shown) {
        area |= widget->geometry();
    }
    QPixmap picture(area.size());
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        for (QWidget* widget : shown) {
            painter.drawPixmap(widget->pos() - area.topLeft(), pictureOf(*widget));
        }
    }
    window.setUpdatesEnabled(false);
    return picture.save(QString::fromStdString(file), "PNG");
}

} // namespace onudesk::ctl
