// SPDX-License-Identifier: MIT
#include "pages/framework/config_page.h"

#include "env/client_paths.h"
#include "env/language_module.h"
#include "onudesk/messages.h"
#include "pages/framework/title_bar.h"
#include "snmp/request.h"

#include <algorithm>
#include <utility>

#include <QCheckBox>
#include <QHBoxLayout>

namespace onudesk {

namespace {

constexpr int kTimerMilliseconds = 4000;
constexpr int kHelpFileId = 6201;
constexpr int kConfigCaption = 20001;
constexpr int kRefreshCaption = 20002;
constexpr int kHelpCaption = 20003;
const QColor kPageColour(232, 240, 247);

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

void layoutPanels(const QWidget& frame, QWidget& listPanel, QWidget& bottomPanel, int areaWidth) {
    const QSize bottom = bottomPanel.size();
    listPanel.setGeometry(0, 0, frame.width(), frame.height() - bottom.height());
    bottomPanel.move((areaWidth - bottom.width()) / 2, frame.height() - bottom.height());
}

ConfigPage::ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent)
    : QFrame(parent), Timer1(new QTimer(this)), listPanel(new QFrame(this)),
      bottomPanel(new QFrame(this)), session_(session), itemType_(itemType),
      rules_(std::move(rules)), catalogue_(loadCatalogue(itemType)), registration_(*this) {
    paintPlain(*this, kPageColour);
    listPanel->setObjectName(QStringLiteral("listPanel"));
    bottomPanel->setObjectName(QStringLiteral("bottomPanel"));
    configBtn = makeButton(bottomPanel, "configBtn", kConfigCaption, [this] { configBtnClick(); });
    refreshBtn =
        makeButton(bottomPanel, "refreshBtn", kRefreshCaption, [this] { refreshBtnClick(); });
    helpBtn = makeButton(bottomPanel, "helpBtn", kHelpCaption, [this] { helpBtnClick(); });
    auto* row = new QHBoxLayout(bottomPanel);
    for (QPushButton* button : {configBtn, refreshBtn, helpBtn}) {
        row->addWidget(button);
    }
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(kTimerMilliseconds);
    connect(Timer1, &QTimer::timeout, this, &ConfigPage::Timer1Timer);
}

ConfigPage::~ConfigPage() {
    unregisterWindow(session_, replyHandle());
}

void ConfigPage::start(std::vector<QAbstractButton*> request, std::vector<QAbstractButton*> write) {
    requestButtons_ = std::move(request);
    requestButtons_.insert(requestButtons_.begin(), configBtn);
    writeButtons_ = std::move(write);
    writeButtons_.insert(writeButtons_.begin(), {configBtn, refreshBtn});
    bottomPanel->adjustSize();
    orderTabs();
    if (rules_.start == StartState::waiting) {
        enableRequestButtons(false);
        refreshBtn->setEnabled(false);
        startTimer();
    }
}

void ConfigPage::orderTabs() {
    // The buttons were made first and stand below everything else.
    QWidget* before = nullptr;
    for (QWidget* control : listPanel->findChildren<QWidget*>()) {
        before = (control->focusPolicy() & Qt::TabFocus) != 0 ? control : before;
    }
    for (QWidget* button : bottomPanel->findChildren<QPushButton*>()) {
        if (before != nullptr) {
            setTabOrder(before, button);
        }
        before = button;
    }
}

void ConfigPage::setFields(std::vector<Field> fields) {
    fields_.clear();
    for (Field& field : fields) {
        auto* control = findChild<QWidget*>(QString::fromStdString(field.control));
        if (control == nullptr) {
            qFatal("no control named %s", field.control.c_str());
        }
        auto* box =
            field.box.empty() ? nullptr : findChild<QCheckBox*>(QString::fromStdString(field.box));
        fields_.push_back({std::move(field), control, box});
    }
}

Field& ConfigPage::field(const std::string& control) {
    const auto found = std::ranges::find_if(
        fields_, [&](const BoundField& bound) { return bound.field.control == control; });
    if (found == fields_.end()) {
        qFatal("no field named %s", control.c_str());
    }
    return found->field;
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
    refreshBtn->setEnabled(false);
    registerReadRoute(session_, itemType_, replyHandle());
    startTimer();
    prepareRefresh();
    sendReadRequest(session_, itemType_);
}

void ConfigPage::Timer1Timer() {
    refreshBtn->setEnabled(true);
    Timer1->stop();
}

void ConfigPage::startTimer() {
    // A running timer keeps its time, so that reads stay 4000 ms apart and not more.
    if (!Timer1->isActive()) {
        Timer1->start();
    }
}

void ConfigPage::handleMessage(const platform::WindowMessage& message) {
    if (message.number == WM_CODEPARA_READ_REPLY && rules_.readsReplies) {
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
    if (result.values.size() < rules_.minimumValues ||
        (!rules_.resultText.empty() && result.resultText != rules_.resultText)) {
        return;
    }
    showFields(result);
    fillPage(result);
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

void ConfigPage::enableRequestButtons(bool enabled) {
    for (QAbstractButton* button : requestButtons_) {
        button->setEnabled(enabled);
    }
}

void ConfigPage::showFields(const ReadResult& result) {
    for (const BoundField& bound : fields_) {
        const auto text = shownText(bound.field, result);
        if (!text) {
            continue;
        }
        auto* combo = qobject_cast<QComboBox*>(bound.control);
        if (combo == nullptr) {
            setControlText(*bound.control, *text);
        } else if (bound.field.unknown == UnknownCode::clears) {
            selectOrClear(*combo, result.values[bound.field.position]);
        } else {
            selectIfKnown(*combo, result.values[bound.field.position]);
        }
    }
}

FieldState ConfigPage::boundState(const BoundField& bound) {
    FieldState state = stateOf(*bound.control);
    if (bound.box != nullptr) {
        state.ticked = bound.box->isChecked();
    }
    return state;
}

bool ConfigPage::checkFields() {
    for (const BoundField& bound : fields_) {
        if (const auto failure = checkField(bound.field, boundState(bound))) {
            refuse(*failure, bound.control);
            return false;
        }
    }
    return true;
}

void ConfigPage::configBtnClick() {
    if (!checkFields()) {
        return;
    }
    if (CodeParaPtr request = beginWrite()) {
        bindFields(*request);
        finishWrite(std::move(request));
    }
}

CodeParaPtr ConfigPage::beginWrite() {
    CodeParaPtr request = createWriteRequest(session_, itemType_);
    if (request) {
        for (QAbstractButton* button : writeButtons_) {
            button->setEnabled(false);
        }
        startTimer();
    }
    return request;
}

void ConfigPage::bind(DllClientCodePara& request, const std::string& group,
                      const std::string& object, const std::string& value,
                      const std::string& suffix, std::size_t length) const {
    if (const CONFIG_OID_T* found = lookup(catalogue_, group, object)) {
        addWriteBinding(request, value, *found, suffix, length);
    }
}

void ConfigPage::bindFields(DllClientCodePara& request) const {
    for (const BoundField& bound : fields_) {
        const FieldState state = boundState(bound);
        if (isWritten(bound.field, state)) {
            bind(request, bound.field.group, bound.field.object, writtenValue(bound.field, state),
                 session_.OnuIndexText);
        }
    }
}

void ConfigPage::finishWrite(CodeParaPtr request) {
    registerWriteRoute(session_, itemType_, replyHandle());
    postWrite(session_, std::move(request));
}

void ConfigPage::refuse(const CheckFailure& failure, QWidget* focus) const {
    onudesk::refuse(failure, focus, replyHandle());
}

void ConfigPage::helpBtnClick() {
    openPageHelp(messageText(rules_.helpKeyId), currentHelpIndex(), messageText(kHelpFileId));
}

void ConfigPage::FrameResize() {
    // Beside the tree a page starts one pixel right of it; the area to centre in starts at the
    // tree.
    layoutPanels(*this, *listPanel, *bottomPanel, width() + (x() > 0 ? 1 : 0));
}

void ConfigPage::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    FrameResize();
}

} // namespace onudesk
