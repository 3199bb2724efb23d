// SPDX-License-Identifier: MIT
//
// The least a Qt program with a window can do: show it, paint it, end. Prints its resident memory.
#include "memory.h"

#include <iostream>

#include <QApplication>
#include <QLabel>
#include <QTimer>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLabel window(QStringLiteral("empty"));
    window.resize(790, 562);
    window.show();
    QTimer::singleShot(0, &window, [&] {
        window.grab();
        std::cout << onudesk::bench::residentKilobytes() << '\n';
        QApplication::quit();
    });
    return QApplication::exec();
}
