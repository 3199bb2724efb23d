// SPDX-License-Identifier: MIT
#include "pages/framework/config_page.h"

#include "env/help_index.h"
#include "env/language_module.h"
#include "onudesk/messages.h"
#include "window/request.h"

#include <algorithm>
#include <utility>

#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kTimerMilliseconds = 4000;
constexpr int kFormWidth = 360;

} // namespace

QPushButton* makeButton(QWidget* parent, const char* name, int captionId,
                        std::function<void()> onClick) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    setCaption(*button, captionId);
    QObject::connect(button, &QPushButton::clicked, parent, std::move(onClick));
    return button;
}

ConfigPage::ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent)
    : PageFrame(parent), Timer1(new QTimer(this)), session_(session), itemType_(itemType),
      rules_(std::move(rules)), catalogue_(loadCatalogue(itemType)), registration_(*this) {
    if (rules_.config.name != nullptr) {
        configBtn = addRequestButton(rules_.config.name, rules_.config.captionId,
                                     [this] { configBtnClick(); });
        writeButtons_.push_back(configBtn);
    }
    if (rules_.refresh.name != nullptr) {
        refreshBtn = makeButton(bottomPanel, rules_.refresh.name, rules_.refresh.captionId,
                                [this] { refreshBtnClick(); });
        buttonRow().addWidget(refreshBtn);
        writeButtons_.push_back(refreshBtn);
    }
    helpBtn = makeButton(bottomPanel, "helpBtn", message::help, [this] { helpBtnClick(); });
    buttonRow().addWidget(helpBtn);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(kTimerMilliseconds);
    connect(Timer1, &QTimer::timeout, this, &ConfigPage::Timer1Timer);
}

ConfigPage::~ConfigPage() {
    unregisterWindow(session_, replyHandle());
}

QPushButton* ConfigPage::addRequestButton(const char* name, int captionId,
                                          std::function<void()> onClick) {
    QPushButton* button = makeButton(bottomPanel, name, captionId, std::move(onClick));
    buttonRow().insertWidget(static_cast<int>(requestButtons_.size()), button);
    requestButtons_.push_back(button);
    return button;
}

QWidget* ConfigPage::buildForm(std::vector<Field> fields, const std::vector<int>& titleIds) {
    auto* area = new QWidget(listPanel);
    area->setMinimumWidth(kFormWidth);
    auto* middle = new QVBoxLayout(listPanel);
    middle->addWidget(area, 0, Qt::AlignCenter);
    FormGrid form(*area, std::max(1, static_cast<int>(titleIds.size())));
    form.titles(titleIds);
    fields_.add(form, std::move(fields));
    return area;
}

void ConfigPage::buildCentredForm(std::vector<Field> fields) {
    listPanel->setMinimumWidth(kFormWidth);
    FormGrid form(*centredPanel(), 1);
    fields_.add(form, std::move(fields));
}

void ConfigPage::start(const std::vector<QAbstractButton*>& request,
                       const std::vector<QAbstractButton*>& write) {
    requestButtons_.insert(requestButtons_.end(), request.begin(), request.end());
    writeButtons_.insert(writeButtons_.end(), write.begin(), write.end());
    finishLayout();
    if (rules_.start == StartState::waiting) {
        enableRequestButtons(false);
        enableRefresh(false);
        startTimer();
    }
}

void ConfigPage::updatePage() {
    if (rules_.rereadsWhenShown) {
        refreshBtnClick();
    } else {
        update();
    }
}

void ConfigPage::refreshBtnClick() {
    enableRequestButtons(false);
    enableRefresh(false);
    registerReadRoute(session_, itemType_, replyHandle());
    startTimer();
    if (rules_.refreshEmpties) {
        fields_.empty();
    }
    prepareRefresh();
    sendReadRequest(session_, itemType_);
}

void ConfigPage::Timer1Timer() {
    enableRefresh(true);
    Timer1->stop();
}

void ConfigPage::startTimer() {
    // A running timer keeps its time: refreshBtn comes back when it was going to.
    if (!Timer1->isActive()) {
        Timer1->start();
    }
}

void ConfigPage::handleMessage(const platform::WindowMessage& message) {
    if (message.number == WM_CODEPARA_READ_REPLY) {
        readReply(message.payload);
    } else if (message.number == WM_CODEPARA_WRITE_REPLY &&
               rules_.onWriteReply != OnWriteReply::ignored) {
        writeReply(message.payload);
    } else if (message.number == WM_CODEPARA_READ_REPLY ||
               message.number == WM_CODEPARA_WRITE_REPLY) {
        BorrowedReply(session_, message.payload).giveBack();
    }
}

void ConfigPage::readReply(void* reply) {
    const ReadResult result = readDecode(session_, reply);
    if (!result.success) {
        if (rules_.onFailedDecode != OnFailedDecode::leaves) {
            enableRequestButtons(rules_.onFailedDecode == OnFailedDecode::enables);
        }
        return;
    }
    enableRequestButtons(rules_.onDecoded == OnDecoded::enables || result.completed);
    if (rules_.flagSetsRefresh) {
        enableRefresh(result.completed);
    }
    if (!rules_.resultText.empty() && result.resultText != rules_.resultText) {
        otherReply(result);
    } else if (result.values.size() >= rules_.minimumValues && mayShow(result)) {
        fields_.show(result);
        fillPage(result);
    }
}

void ConfigPage::writeReply(void* reply) {
    if (rules_.onWriteReply != OnWriteReply::notifies) {
        refreshBtnClick();
    }
    if (rules_.onWriteReply == OnWriteReply::refreshes) {
        BorrowedReply(session_, reply).giveBack();
        return;
    }
    writeResultNotice(session_, replyHandle(), reply, {});
}

void ConfigPage::fillPage(const ReadResult& /*result*/) {}

void ConfigPage::otherReply(const ReadResult& /*result*/) {}

void ConfigPage::enableRequestButtons(bool enabled) {
    for (QAbstractButton* button : requestButtons_) {
        button->setEnabled(enabled);
    }
}

void ConfigPage::enableRefresh(bool enabled) {
    if (refreshBtn != nullptr) {
        refreshBtn->setEnabled(enabled);
    }
}

bool ConfigPage::mayWrite() {
    return fields_.check(replyHandle());
}

void ConfigPage::bindWrite(WriteRequest& request) {
    fields_.bind(request, session_.OnuIndexText);
}

void ConfigPage::checkAndWrite() {
    if (!mayWrite()) {
        return;
    }
    if (WriteRequest request = beginWrite()) {
        bindWrite(request);
        finishWrite(std::move(request));
    }
}

WriteRequest ConfigPage::newRequest() const {
    return {session_, catalogue_, itemType_, rules_.group};
}

void ConfigPage::markWriting() {
    for (QAbstractButton* button : writeButtons_) {
        button->setEnabled(false);
    }
    startTimer();
}

WriteRequest ConfigPage::beginWrite() {
    WriteRequest request = newRequest();
    if (request) {
        markWriting();
    }
    return request;
}

void ConfigPage::finishWrite(WriteRequest request) {
    registerWriteRoute(session_, itemType_, replyHandle());
    request.post();
}

void ConfigPage::refuse(const CheckFailure& failure, QWidget* focus) const {
    onudesk::refuse(failure, focus, replyHandle());
}

void ConfigPage::helpBtnClick() {
    openPageHelp(messageText(rules_.helpKeyId), currentHelpIndex(), messageText(message::helpFile));
}

} // namespace onudesk
