// SPDX-License-Identifier: MIT
#include "ctl/picture.h"

#include "ctl/control_finder.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <vector>

namespace onudesk::ctl {

bool savePicture(QWidget& window, const std::string& file) {
    window.setUpdatesEnabled(true);
    // Lays out what the values changed; handlers must not run here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
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
            painter.drawPixmap(widget->pos() - area.topLeft(), widget->grab());
        }
    }
    window.setUpdatesEnabled(false);
    return picture.save(QString::fromStdString(file), "PNG");
}

} // namespace onudesk::ctl
