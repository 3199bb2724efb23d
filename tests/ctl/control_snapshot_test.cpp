// SPDX-License-Identifier: MIT
#include "ctl/control_snapshot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

template <typename Widget>
Widget* named(QWidget& parent, const char* name) {
    auto* widget = new Widget(&parent);
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// What each kind has besides "focus", "visible" and, where it is not told, "enabled".
constexpr const char* kControls = R"({
    "edit":   {"kind":"edit", "text":"text", "editable":true},
    "secret": {"kind":"edit", "text":"dots", "editable":false},
    "masked": {"kind":"edit", "text":"0_:__", "editable":true},
    "memo":   {"kind":"memo", "text":"", "editable":false},
    "combo":  {"kind":"combo", "text":"b", "index":1, "items":["a","b"], "editable":true},
    "none":   {"kind":"combo", "text":"", "index":-1, "items":["a"], "editable":true},
    "box":    {"kind":"box", "text":"", "checked":true, "editable":true},
    "button": {"kind":"button", "text":"", "enabled":false, "editable":false},
    "table":  {"kind":"table", "columns":["A","C"], "rows":[["1",""]], "selected":-1,
               "editable":false},
    "Timer1": {"kind":"timer", "enabled":false, "editable":false}})";

TEST(ControlSnapshots, CarryTheKeysOfTheirKind) {
    QWidget page;
    named<QLineEdit>(page, "edit")->setText(QStringLiteral("text"));
    auto* secret = named<QLineEdit>(page, "secret");
    secret->setEchoMode(QLineEdit::Password);
    secret->setText(QStringLiteral("hunter2"));
    secret->setReadOnly(true);
    auto* masked = named<QLineEdit>(page, "masked");
    masked->setInputMask(QStringLiteral("nn:nn;_"));
    masked->setText(QStringLiteral("0"));
    named<QPlainTextEdit>(page, "memo")->setReadOnly(true);
    auto* combo = named<QComboBox>(page, "combo");
    combo->addItems({QStringLiteral("a"), QStringLiteral("b")});
    combo->setCurrentIndex(1);
    auto* none = named<QComboBox>(page, "none");
    none->addItem(QStringLiteral("a"));
    none->setCurrentIndex(-1);
    named<QCheckBox>(page, "box")->setChecked(true);
    named<QPushButton>(page, "button")->setEnabled(false);
    auto* table = named<QTableWidget>(page, "table");
    table->setColumnCount(3);
    table->setRowCount(1);
    table->setHorizontalHeaderLabels(
        {QStringLiteral("A"), QStringLiteral("hidden"), QStringLiteral("C")});
    table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("1")));
    table->setItem(0, 1, new QTableWidgetItem(QStringLiteral("2")));
    table->setColumnHidden(1, true);
    named<QFrame>(page, "panel");
    new QLineEdit(&page); // without a name
    QTimer timer(&page);
    timer.setObjectName(QStringLiteral("Timer1"));

    QJsonObject expected = QJsonDocument::fromJson(kControls).object();
    ASSERT_EQ(expected.size(), 10);
    std::vector<ControlSnapshot> controls = snapshotControls(page);
    for (ControlSnapshot& control : controls) {
        QJsonObject wanted = expected.take(control.name).toObject();
        if (wanted.value(QLatin1String("kind")) != QStringLiteral("timer")) {
            EXPECT_EQ(control.properties.take(QStringLiteral("visible")), false);
            EXPECT_EQ(control.properties.take(QStringLiteral("focus")), false);
        }
        if (!wanted.contains(QLatin1String("enabled"))) {
            wanted.insert(QLatin1String("enabled"), true);
        }
        if (wanted.value(QLatin1String("text")) == QStringLiteral("dots")) {
            EXPECT_NE(secret->displayText(), QStringLiteral("hunter2"));
            wanted.insert(QLatin1String("text"), secret->displayText());
        }
        EXPECT_EQ(control.properties, wanted) << control.name.toStdString();
    }
    EXPECT_TRUE(expected.isEmpty()) << expected.keys().join(QLatin1Char(' ')).toStdString();

    const auto row = [&](const QObject& control, const char* property) {
        return propertyText(snapshotControl(control), QString::fromLatin1(property))
            .value_or(QStringLiteral("none"));
    };
    table->setRowCount(2);
    EXPECT_EQ(row(*table, "row:0"), QStringLiteral("1 | "));
    EXPECT_EQ(row(*table, "row:1"), QStringLiteral(" | "));
    EXPECT_EQ(row(*table, "row:2"), QStringLiteral("none"));
    EXPECT_EQ(row(*secret, "row:0"), QStringLiteral("none"));
}

} // namespace
} // namespace onudesk::ctl
