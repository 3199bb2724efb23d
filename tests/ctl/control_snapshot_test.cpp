// SPDX-License-Identifier: MIT
#include "ctl/control_snapshot.h"

#include <map>

#include <QCheckBox>
#include <QComboBox>
#include <QJsonArray>
#include <QLineEdit>
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

TEST(ControlSnapshots, CarryTheKeysOfTheirKind) {
    QWidget page;
    named<QLineEdit>(page, "edit")->setText(QStringLiteral("text"));
    auto* secret = named<QLineEdit>(page, "secret");
    secret->setEchoMode(QLineEdit::Password);
    secret->setText(QStringLiteral("hunter2"));
    auto* masked = named<QLineEdit>(page, "masked");
    masked->setInputMask(QStringLiteral("nn:nn;_"));
    masked->setText(QStringLiteral("0"));
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

    std::map<QString, QJsonObject> controls;
    for (const ControlSnapshot& control : snapshotControls(page)) {
        EXPECT_TRUE(controls.emplace(control.name, control.properties).second)
            << control.name.toStdString();
    }
    const auto value = [&](const char* control, const char* key) {
        return controls[QString::fromLatin1(control)][QString::fromLatin1(key)];
    };
    EXPECT_EQ(controls.size(), 9U);
    EXPECT_EQ(value("edit", "text"), QStringLiteral("text"));
    EXPECT_EQ(value("edit", "visible"), false);
    EXPECT_FALSE(value("secret", "text").toString().contains(QStringLiteral("hunter2")));
    EXPECT_EQ(value("masked", "text"), QStringLiteral("0_:__"));
    EXPECT_EQ(value("combo", "index"), 1);
    EXPECT_EQ(value("combo", "text"), QStringLiteral("b"));
    EXPECT_EQ(value("combo", "items"), (QJsonArray{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(value("none", "index"), -1);
    EXPECT_EQ(value("none", "text"), QString());
    EXPECT_EQ(value("box", "checked"), true);
    EXPECT_EQ(value("button", "enabled"), false);
    EXPECT_EQ(value("table", "columns"), (QJsonArray{QStringLiteral("A"), QStringLiteral("C")}));
    EXPECT_EQ(value("table", "rows"), QJsonArray{(QJsonArray{QStringLiteral("1"), QString()})});
    EXPECT_EQ(value("table", "selected"), -1);
    EXPECT_EQ(value("Timer1", "kind"), QStringLiteral("timer"));
    EXPECT_EQ(value("Timer1", "enabled"), false);
}

TEST(ControlSnapshots, HaveOnlyTheRowsThatAreThere) {
    QWidget page;
    auto* table = named<QTableWidget>(page, "table");
    table->setColumnCount(2);
    const auto row = [&](const QWidget& control, const char* property) {
        return propertyText(snapshotControl(control), QString::fromLatin1(property))
            .value_or(QStringLiteral("none"));
    };
    EXPECT_EQ(row(*table, "row:0"), QStringLiteral("none"));
    EXPECT_EQ(row(*named<QLineEdit>(page, "edit"), "row:0"), QStringLiteral("none"));
    table->setRowCount(2);
    table->setItem(1, 0, new QTableWidgetItem(QStringLiteral("1")));
    EXPECT_EQ(row(*table, "row:1"), QStringLiteral("1 | "));
    EXPECT_EQ(row(*table, "row:2"), QStringLiteral("none"));
}

} // namespace
} // namespace onudesk::ctl
