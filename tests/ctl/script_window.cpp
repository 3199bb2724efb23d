// SPDX-License-Identifier: MIT
#include "script_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace onudesk::ctl {

namespace {

using platform::Prompt;
using platform::PromptAnswer;
using platform::PromptButtons;
using platform::PromptIcon;

bool confirmed(const char* question) {
    return platform::prompt({.text = question,
                             .caption = "Question",
                             .icon = PromptIcon::warning,
                             .buttons = PromptButtons::yesNo}) == PromptAnswer::yes;
}

// A widget of that name below the others of the parent.
template <typename Widget>
Widget* add(QWidget& parent, const char* name) {
    auto* const widget = new Widget(&parent);
    widget->setObjectName(QString::fromLatin1(name));
    parent.layout()->addWidget(widget);
    return widget;
}

QPushButton* addButton(QWidget& parent, const char* name, const std::function<void()>& onClick) {
    auto* const button = add<QPushButton>(parent, name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, onClick);
    return button;
}

class LoggingTable : public QTableWidget {
public:
    using QTableWidget::QTableWidget;
    QStringList* log = nullptr;
    std::function<void()> onDoubleClick;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        QTableWidget::mouseReleaseEvent(event);
        log->append(QStringLiteral("row released"));
        if (!indexAt(event->pos()).isValid()) {
            clearSelection();
        }
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QTableWidget::mouseDoubleClickEvent(event);
        onDoubleClick();
    }
};

} // namespace

ScriptWindow::ScriptWindow() {
    window_.setLayout(new QVBoxLayout);
    page_ = add<QFrame>(window_, "TOnuRows");
    page_->setLayout(new QVBoxLayout);
    addEdits();
    addChoices();
    addTable();
    addButtons();
    window_.resize(500, 700);
}

QWidget* ScriptWindow::window() const {
    return window_.isVisible() ? const_cast<QDialog*>(&window_) : nullptr;
}

Result<QWidget*> ScriptWindow::openPage(std::int32_t itemType) {
    if (itemType == 404) {
        return Error{"item 404: the menu has no such item"};
    }
    opened = itemType;
    return page_;
}

bool ScriptWindow::quiet() const {
    if (busy == 0) {
        return true;
    }
    busy = busy > 0 ? busy - 1 : busy;
    QMetaObject::invokeMethod(page_, onChange, Qt::QueuedConnection);
    if (whileBusy) {
        whileBusy();
    }
    return false;
}

void ScriptWindow::addEdits() {
    auto* const number = add<QLineEdit>(*page_, "numberEdit");
    number->setValidator(new QIntValidator(number));
    number->setMaxLength(3);
    add<QLineEdit>(*page_, "macEdit")->setInputMask(QStringLiteral("nn:nn;_"));
    add<QLineEdit>(*page_, "phraseEdit")->setEchoMode(QLineEdit::Password);
    add<QLineEdit>(*page_, "fixedEdit")->setReadOnly(true);
    add<QPlainTextEdit>(*page_, "memo")->setTabChangesFocus(true);
    add<QLabel>(*page_, "hint")->hide();
    QObject::connect(number, &QLineEdit::textEdited, number,
                     [this](const QString& text) { log << QStringLiteral("edited ") + text; });
}

void ScriptWindow::addChoices() {
    auto* const combo = add<QComboBox>(*page_, "modeComb");
    combo->addItems({QStringLiteral("off"), QStringLiteral("slow"), QStringLiteral("fast")});
    QObject::connect(combo, &QComboBox::currentTextChanged, combo,
                     [this](const QString& text) { log << QStringLiteral("mode ") + text; });
    add<QCheckBox>(*page_, "plainChk");
    auto* const stubborn = add<QCheckBox>(*page_, "stubbornChk");
    QObject::connect(stubborn, &QCheckBox::clicked, stubborn,
                     [stubborn] { stubborn->setChecked(false); });
    auto* const asking = add<QCheckBox>(*page_, "askingChk");
    QObject::connect(asking, &QCheckBox::clicked, asking,
                     [asking] { asking->setChecked(asking->isChecked() && confirmed("Really?")); });
    add<QRadioButton>(*page_, "firstRadio")->setChecked(true);
    add<QRadioButton>(*page_, "secondRadio");
}

void ScriptWindow::addTable() {
    auto* const table = add<LoggingTable>(*page_, "mainTable");
    table_ = table;
    table->log = &log;
    table->onDoubleClick = [this] { openItem(QStringLiteral("rowDialog")); };
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setColumnCount(3);
    table->setColumnHidden(0, true);
    table->setRowCount(40);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            table->setItem(row, column,
                           new QTableWidgetItem(QStringLiteral("%1.%2").arg(row).arg(column)));
        }
    }
}

void ScriptWindow::addButtons() {
    addButton(*page_, "addBtn", [this] { openItem(QStringLiteral("addDialog")); });
    addButton(*page_, "deleteBtn", [this] {
        const bool first = confirmed("Delete?");
        log << (first && confirmed("All of them?") ? QStringLiteral("deleted")
                                                   : QStringLiteral("kept"));
    });
    addButton(*page_, "tellBtn", [] {
        platform::prompt({.text = "done", .caption = "Notice", .icon = PromptIcon::information});
    });
    addButton(*page_, "refuseBtn", [] {
        platform::prompt({.text = "no: genErr", .caption = "Attention", .icon = PromptIcon::none});
    });
    addButton(*page_, "fewBtn", [this] { table_->setRowCount(2); });
    addButton(*page_, "emptyBtn", [] {})->setEnabled(false);
    addButton(*page_, "closeBtn", [this] { window_.close(); });
    auto* const timer = new QTimer(page_);
    timer->setObjectName(QStringLiteral("Timer1"));
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer] {
        timer->stop();
        log << QStringLiteral("page timer");
    });
    addButton(*page_, "timerBtn", [timer] { timer->start(3600000); });
}

// As item dialogs of list pages: the page's child, modal, refusing nothing but what is told below.
void ScriptWindow::openItem(const QString& name) {
    QDialog dialog(page_);
    dialog.setObjectName(name);
    dialog.setWindowTitle(name);
    dialog.setLayout(new QVBoxLayout);
    dialog.setFixedSize(200, 300);
    QPalette red = dialog.palette();
    red.setColor(QPalette::Window, Qt::red);
    dialog.setPalette(red);
    add<QLineEdit>(dialog, "numberEdit");
    add<QTableWidget>(dialog, "itemTable")->setColumnCount(1);
    addButton(dialog, "innerBtn", [this] { openItem(QStringLiteral("innerDialog")); });
    addButton(dialog, "askBtn", [] { static_cast<void>(confirmed("Inside?")); });
    addButton(dialog, "okBtn", [&dialog] { dialog.accept(); });
    auto* const timer = new QTimer(&dialog);
    timer->setObjectName(QStringLiteral("Timer1"));
    timer->start(3600000);
    QObject::connect(timer, &QTimer::timeout, &dialog, [this, timer] {
        timer->stop();
        log << QStringLiteral("dialog timer");
    });
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [this, name] {
        log << name + QStringLiteral(" asks");
        static_cast<void>(confirmed("Discard?"));
    });
    const bool accepted = dialog.exec() == QDialog::Accepted;
    log << name + (accepted ? QStringLiteral(" accepted") : QStringLiteral(" rejected"));
    page_->findChild<QLabel*>(QStringLiteral("hint"))->setText(log.back());
}

} // namespace onudesk::ctl
