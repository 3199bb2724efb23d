// SPDX-License-Identifier: MIT
#include "ctl/picture.h"

#include "support/client_tree.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

class Picture : public ::testing::Test {
protected:
    Picture() {
        window.resize(400, 300);
        window.show();
        QApplication::processEvents();
        window.setUpdatesEnabled(false);
    }
    QImage save() {
        const std::string file = (directory_.path() / "window.png").string();
        EXPECT_TRUE(savePicture(window, file));
        return QImage(QString::fromStdString(file));
    }

    QWidget window;

private:
    const test::TemporaryDirectory directory_;
};

TEST_F(Picture, ShowsWhatWaitsToBePainted) {
    QWidget waiting(&window);
    waiting.setGeometry(100, 100, 50, 50);
    waiting.setAutoFillBackground(true);
    waiting.setPalette(QPalette(Qt::red));
    const QWidget inside(&waiting);
    waiting.show();
    waiting.setUpdatesEnabled(false);
    EXPECT_EQ(save().pixelColor(125, 125), QColor(Qt::red));
    // It goes on waiting.
    window.setUpdatesEnabled(true);
    EXPECT_FALSE(waiting.updatesEnabled());
    waiting.setUpdatesEnabled(true);
    EXPECT_TRUE(inside.updatesEnabled());
}

TEST_F(Picture, IsTakenWhenAllNestedLayoutsAreDone) {
    auto* const around = new QHBoxLayout(&window);
    QHBoxLayout* inner = around;
    for (int level = 0; level < 3; ++level) {
        auto* const panel = new QWidget;
        inner->addWidget(panel, 0, Qt::AlignLeft);
        inner = new QHBoxLayout(panel);
    }
    auto* const label = new QLabel(QStringLiteral("short"));
    inner->addWidget(label);
    QApplication::processEvents();
    label->setText(QStringLiteral("a text that has become longer"));
    save();
    EXPECT_GE(label->width(), label->sizeHint().width());
}

} // namespace
} // namespace onudesk::ctl
