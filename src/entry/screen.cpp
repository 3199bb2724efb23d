// SPDX-License-Identifier: MIT
#include "entry/screen.h"

#include "env/language_module.h"
#include "pages/framework/controls.h"
#include "platform/files.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>

namespace onudesk {

namespace {

constexpr int kOkCaption = 20005;
constexpr int kYesCaption = 20007;
constexpr int kNoCaption = 20008;
constexpr int kViewerTitle = 20030;
constexpr int kNoTopic = 20031;
constexpr QSize kViewerSize(640, 480);

QMessageBox::Icon boxIcon(platform::PromptIcon icon) {
    switch (icon) {
    case platform::PromptIcon::information:
        return QMessageBox::Information;
    case platform::PromptIcon::warning:
        return QMessageBox::Warning;
    case platform::PromptIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

// A topic's file: the book's name without extension is the folder that holds it.
std::optional<std::filesystem::path> topicFile(const std::string& book, const std::string& topic) {
    return platform::resolveClientPath(book.substr(0, book.rfind('.')) + "\\" + topic);
}

} // namespace

platform::PromptAnswer ScreenPrompter::ask(const platform::Prompt& prompt) {
    QMessageBox box(boxIcon(prompt.icon), shown(prompt.caption), shown(prompt.text),
                    QMessageBox::NoButton, QApplication::activeModalWidget());
    box.setTextFormat(Qt::PlainText);
    if (prompt.buttons == platform::PromptButtons::ok) {
        box.addButton(withoutMnemonics(shown(messageText(kOkCaption))), QMessageBox::AcceptRole);
        box.exec();
        return platform::PromptAnswer::ok;
    }
    const QAbstractButton* yes =
        box.addButton(withoutMnemonics(shown(messageText(kYesCaption))), QMessageBox::YesRole);
    QPushButton* no =
        box.addButton(withoutMnemonics(shown(messageText(kNoCaption))), QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes ? platform::PromptAnswer::yes : platform::PromptAnswer::no;
}

ScreenDesktop::~ScreenDesktop() {
    delete viewer_;
}

void ScreenDesktop::showHelp(const std::string& book, const std::string& topic) {
    QWidget* const owner = QApplication::activeModalWidget();
    if (!viewer_ || viewer_->parentWidget() != owner) {
        delete viewer_;
        // A child of the modal window, which would otherwise keep the viewer from the mouse.
        viewer_ = new QTextBrowser(owner);
        viewer_->setWindowFlag(Qt::Window);
        viewer_->setObjectName(QStringLiteral("helpViewer"));
        viewer_->setWindowTitle(shown(messageText(kViewerTitle)));
        viewer_->resize(kViewerSize);
    }
    if (const auto file = topicFile(book, topic)) {
        viewer_->setSource(QUrl::fromLocalFile(QString::fromStdString(file->string())));
    } else {
        viewer_->setPlainText(shown(fillPlaces(messageText(kNoTopic), {topic})));
    }
    viewer_->show();
    viewer_->raise();
}

} // namespace onudesk
