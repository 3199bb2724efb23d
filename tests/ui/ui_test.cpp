// SPDX-License-Identifier: MIT
#include "ui_test.h"

#include "env/help_index.h"
#include "env/language_module.h"
#include "pages/framework/controls.h"
#include "pages/framework/item_dialog.h"
#include "platform/window_messages.h"
#include "window/object_catalogue.h"

#include <algorithm>
#include <set>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

namespace onudesk::test {

namespace {

LanguageModule english() {
    return LanguageModule::load(std::string(ONUDESK_SOURCE_DIR) + "/client/lang/libonuconfig.ENU")
        .value();
}

void mouse(QWidget& control, QEvent::Type type, QPoint position, Qt::MouseButton button) {
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease || type == QEvent::MouseMove ? Qt::NoButton : button;
    QMouseEvent event(type, position, control.mapToGlobal(position), button, held, Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

class DialogWatch : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<ItemDialog*>(watched);
        if (dialog != nullptr && event->type() == QEvent::Show && dialog->isModal()) {
            // Behind whatever the test put off until the dialog is there.
            QTimer::singleShot(0, dialog, [dialog] { closeUnexpected(*dialog); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void closeUnexpected(ItemDialog& dialog) {
        if (dialog.isVisible()) {
            ADD_FAILURE() << "unexpected dialog " << bytesOf(dialog.objectName());
            dialog.done(QDialog::Rejected);
        }
    }
};

} // namespace

UiTest::UiTest() : tree_(ONUDESK_BUILD_CLIENT_DIR), dialogWatch_(std::make_unique<DialogWatch>()) {
    installLanguage(english());
    qApp->installEventFilter(dialogWatch_.get());
}

UiTest::~UiTest() {
    EXPECT_EQ(platform::pendingWindowMessages(), 0U);
    clearHelpIndex();
    installLanguage({});
}

void clickAt(QWidget& control, QPoint position) {
    if (control.isEnabled()) {
        mouse(control, QEvent::MouseButtonPress, position, Qt::LeftButton);
        mouse(control, QEvent::MouseButtonRelease, position, Qt::LeftButton);
    }
}

void click(QWidget& control) {
    clickAt(control, control.rect().center());
}

void doubleClickAt(QWidget& control, QPoint position) {
    clickAt(control, position);
    mouse(control, QEvent::MouseButtonDblClick, position, Qt::LeftButton);
    mouse(control, QEvent::MouseButtonRelease, position, Qt::LeftButton);
}

namespace {

QPoint placeOf(const QTableView& table, int row) {
    return row < 0 ? QPoint(10, table.viewport()->height() - 3)
                   : table.visualRect(table.model()->index(row, 0)).center();
}

} // namespace

void clickRow(const QTableView& table, int row) {
    clickAt(*table.viewport(), placeOf(table, row));
}

void doubleClickRow(const QTableView& table, int row) {
    doubleClickAt(*table.viewport(), placeOf(table, row));
}

void drag(QWidget& control, QPoint from, QPoint by) {
    // What is dragged moves, so the places on the screen are fixed first.
    const QPoint begin = control.mapToGlobal(from);
    const auto send = [&](QEvent::Type type, QPoint global, Qt::MouseButtons held) {
        QMouseEvent event(type, control.mapFromGlobal(global), global, Qt::LeftButton, held,
                          Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    };
    send(QEvent::MouseButtonPress, begin, Qt::LeftButton);
    send(QEvent::MouseMove, begin + by, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, begin + by, Qt::NoButton);
}

void hover(QWidget& control) {
    mouse(control, QEvent::MouseMove, control.rect().center(), Qt::NoButton);
}

void key(QWidget& control, int code, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
    QApplication::sendEvent(&control, &press);
    QKeyEvent release(QEvent::KeyRelease, code, Qt::NoModifier, text);
    QApplication::sendEvent(&control, &release);
}

void type(QWidget& control, const QString& text) {
    for (const QChar c : text) {
        key(control, Qt::Key_unknown, QString(c));
    }
}

void type(QWidget& control, const char* text) {
    type(control, QString::fromUtf8(text));
}

void elapse(const QObject& page) {
    auto* timer = page.findChild<QTimer*>(QStringLiteral("Timer1"));
    ASSERT_NE(timer, nullptr);
    ASSERT_TRUE(timer->isActive());
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

namespace {

std::string readable(const std::string& value) {
    const bool text = std::ranges::all_of(value, [](char c) { return ' ' <= c && c <= '~'; });
    if (text) {
        return value;
    }
    const QByteArray digits = QByteArray::fromStdString(value).toHex().toUpper();
    return "#" + digits.toStdString();
}

// What follows the object's own OID.
std::string instanceOf(const Binding& binding, const ObjectCatalogue& catalogue) {
    for (const auto& [name, group] : catalogue) {
        const auto object = group.find(binding.name);
        if (object != group.end() && binding.oid.starts_with(object->second.oidstr + ".")) {
            return binding.oid.substr(object->second.oidstr.size() + 1);
        }
    }
    return "?";
}

} // namespace

std::vector<std::string> UiTest::takeWrite() {
    const auto posted = host.take();
    if (!posted || posted->kind != CP_KIND_WRITE) {
        ADD_FAILURE() << "no write was posted";
        return {};
    }
    const ObjectCatalogue catalogue = loadCatalogue(posted->itemType);
    std::vector<std::string> lines;
    for (const Binding& binding : posted->bindings) {
        lines.push_back(binding.name + "@" + instanceOf(binding, catalogue) + "=" +
                        readable(binding.value));
    }
    if (CodeParaReader(*posted->record).integer(CP_FLAG_130) == 0U) {
        lines.emplace_back("first-of-two");
    }
    return lines;
}

std::string UiTest::takeRead() {
    const auto posted = host.take();
    if (!posted || posted->kind != CP_KIND_READ) {
        ADD_FAILURE() << "no read was posted";
        return {};
    }
    return posted->suffix.value_or("none");
}

std::string UiTest::usableIn(const QWidget& window) {
    std::set<std::string> names;
    for (const auto* button : window.findChildren<QPushButton*>()) {
        if (button->isEnabled() && button->objectName() != QStringLiteral("helpBtn")) {
            names.insert(bytesOf(button->objectName()));
        }
    }
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : " ") + name;
    }
    return list;
}

std::string UiTest::textIn(const QWidget& window, const std::string& name) {
    return stateOf(in(window, name)).text;
}

std::string UiTest::stateIn(const QWidget& window, const std::string& name) {
    const QWidget& control = in(window, name);
    const auto* edit = qobject_cast<const QLineEdit*>(&control);
    const bool locked = !control.isEnabled() || (edit != nullptr && edit->isReadOnly());
    return (locked ? "-" : "") + stateOf(control).text;
}

void UiTest::setTextIn(const QWidget& window, const std::string& name, const std::string& text) {
    QWidget& control = in(window, name);
    if (auto* list = qobject_cast<QComboBox*>(&control)) {
        choose(*list, text);
    } else {
        setControlText(control, text);
    }
}

void UiTest::choose(QComboBox& list, const std::string& text) {
    selectByText(list, text);
    Q_EMIT list.activated(list.currentIndex());
}

std::vector<std::string> UiTest::entriesOf(const QComboBox& list) {
    std::vector<std::string> texts;
    for (int at = 0; at < list.count(); ++at) {
        texts.push_back(bytesOf(list.itemText(at)));
    }
    return texts;
}

} // namespace onudesk::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
