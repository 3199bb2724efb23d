// SPDX-License-Identifier: MIT
#include "desk_test.h"

#include <utility>

#include <QAbstractButton>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

namespace onudesk::test {

namespace {

QMessageBox* openBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

} // namespace

void whenReady(const std::function<bool()>& condition, const std::function<void()>& then) {
    auto* timer = new QTimer(QCoreApplication::instance());
    const QDeadlineTimer deadline(kPatience);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        const bool ready = condition();
        if (!ready && !deadline.hasExpired()) {
            return;
        }
        timer->stop();
        timer->deleteLater();
        if (ready) {
            then();
            return;
        }
        ADD_FAILURE() << "not ready in time";
        QApplication::closeAllWindows();
    });
    timer->start(1);
}

void withModal(const std::function<void()>& action, const std::function<void(QWidget&)>& drive) {
    QWidget* const before = QApplication::activeModalWidget();
    bool driven = false;
    whenReady(
        [before] {
            return QApplication::activeModalWidget() != nullptr &&
                   QApplication::activeModalWidget() != before;
        },
        [&driven, &drive] {
            driven = true;
            QWidget* const modal = QApplication::activeModalWidget();
            drive(*modal);
            if (QApplication::activeModalWidget() == modal) {
                ADD_FAILURE() << "left open: " << modal->windowTitle().toStdString();
                modal->close();
            }
        });
    action();
    EXPECT_TRUE(driven) << "no window opened";
}

std::string answerBoxes(const std::function<void()>& action,
                        std::deque<QMessageBox::StandardButton> buttons) {
    std::string text;
    const std::function<void()> awaitBox = [&] {
        whenReady([] { return openBox() != nullptr; },
                  [&] {
                      QMessageBox* const box = openBox();
                      text = box->text().toStdString();
                      EXPECT_EQ(box->textFormat(), Qt::PlainText);
                      QAbstractButton* const button = box->button(buttons.front());
                      buttons.pop_front();
                      if (!buttons.empty()) {
                          awaitBox();
                      }
                      if (button == nullptr) {
                          ADD_FAILURE() << "no such button in \"" << text << "\"";
                          box->close();
                          return;
                      }
                      button->click();
                  });
    };
    awaitBox();
    action();
    EXPECT_TRUE(buttons.empty()) << "boxes missing: " << buttons.size();
    return text;
}

void enter(const QWidget& dialog, const std::string& entries) {
    for (const QString& entry : QString::fromStdString(entries).split(QLatin1Char('|'))) {
        const std::string name = entry.section(QLatin1Char('='), 0, 0).toStdString();
        const QString text = entry.section(QLatin1Char('='), 1);
        if (name.ends_with("Edt")) {
            control<QLineEdit>(dialog, name.c_str()).setText(text);
        } else {
            auto& box = control<QComboBox>(dialog, name.c_str());
            EXPECT_GE(box.findText(text), 0) << entry.toStdString();
            box.setCurrentIndex(box.findText(text));
        }
    }
}

void press(const QWidget& dialog, int standardButton) {
    control<QDialogButtonBox>(dialog, "buttonBox")
        .button(static_cast<QDialogButtonBox::StandardButton>(standardButton))
        ->click();
}

void submit(const QWidget& dialog, const std::string& entries) {
    enter(dialog, entries);
    press(dialog, QDialogButtonBox::Ok);
}

std::string problemIn(const QWidget& dialog) {
    return control<QLabel>(dialog, "problemLbl").text().toStdString();
}

} // namespace onudesk::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
