// SPDX-License-Identifier: MIT
#include "pages/framework/config_page.h"

#include "env/help_index.h"
#include "env/language_module.h"

#include <algorithm>
#include <utility>

#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kFormWidth = 360;

} // namespace

QPushButton* makeButton(QWidget* parent, const char* name, int captionId,
                        std::function<void()> onClick) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    setCaption(*button, captionId);
    button->setProperty(kCaptionId, captionId);
    QObject::connect(button, &QPushButton::clicked, parent, std::move(onClick));
    return button;
}

ConfigPage::ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent)
    : PageFrame(parent), catalogue_(loadCatalogue(itemType)),
      cycle_(*this, session, itemType, std::move(rules),
             {.prepareRead =
                  [this] {
                      if (this->rules().refreshEmpties) {
                          fields_.empty();
                      }
                      prepareRefresh();
                  },
              .handleReply = [this](const ReadResult& result) { handleReply(result); },
              .handleWriteReply = [this](void* reply) { handleWriteReply(reply); }}) {
    Timer1 = cycle_.timer();
    const PageRules& own = this->rules();
    if (own.config.name != nullptr) {
        configBtn =
            addRequestButton(own.config.name, own.config.captionId, [this] { configBtnClick(); });
        cycle_.addWriteButton(configBtn);
    }
    if (own.refresh.name != nullptr) {
        refreshBtn = makeButton(bottomPanel, own.refresh.name, own.refresh.captionId,
                                [this] { refreshBtnClick(); });
        buttonRow().addWidget(refreshBtn);
        cycle_.setRefreshButton(refreshBtn);
        cycle_.addWriteButton(refreshBtn);
    }
    helpBtn = makeButton(bottomPanel, "helpBtn", message::help, [this] { helpBtnClick(); });
    buttonRow().addWidget(helpBtn);
}

QPushButton* ConfigPage::addRequestButton(const char* name, int captionId,
                                          std::function<void()> onClick) {
    QPushButton* button = makeButton(bottomPanel, name, captionId, std::move(onClick));
    buttonRow().insertWidget(static_cast<int>(cycle_.requestButtons().size()), button);
    cycle_.addRequestButton(button);
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
    std::ranges::for_each(request, [this](auto* button) { cycle_.addRequestButton(button); });
    std::ranges::for_each(write, [this](auto* button) { cycle_.addWriteButton(button); });
    finishLayout();
    cycle_.start();
}

void ConfigPage::updatePage() {
    if (rules().rereadsWhenShown) {
        refreshBtnClick();
    } else {
        update();
    }
}

void ConfigPage::onGroup(std::string resultText,
                         std::function<void(const ReadResult& result)> handler) {
    otherGroups_.push_back({std::move(resultText), std::move(handler)});
}

void ConfigPage::handleReply(const ReadResult& result) {
    if (cycle_.isShown(result)) {
        showReply(result);
    } else if (cycle_.isOfOtherGroup(result) && !result.values.empty()) {
        for (const OtherGroup& group : otherGroups_) {
            if (group.resultText == result.resultText) {
                group.handler(result);
            }
        }
    }
}

void ConfigPage::showReply(const ReadResult& result) {
    fields_.show(result);
}

void ConfigPage::handleWriteReply(void* reply) {
    if (configBtn == nullptr) {
        BorrowedReply(session(), reply).giveBack();
        return;
    }
    refreshBtnClick();
    writeResultNotice(session(), replyHandle(), reply, {});
}

bool ConfigPage::mayWrite() {
    return fields_.check(replyHandle());
}

void ConfigPage::bindWrite(WriteRequest& request) {
    fields_.bind(request, session().OnuIndexText);
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
    return {session(), catalogue_, itemType(), rules().group};
}

void ConfigPage::markWriting() {
    cycle_.disableForWrite();
    cycle_.startTimer();
}

WriteRequest ConfigPage::beginWrite() {
    WriteRequest request = newRequest();
    if (request) {
        markWriting();
    }
    return request;
}

bool ConfigPage::writeOne(const ObjectName& object, const std::string& value) {
    WriteRequest request = beginWrite();
    if (!request) {
        return false;
    }
    request.bind(object, value, session().OnuIndexText);
    finishWrite(std::move(request));
    return true;
}

std::string ConfigPage::oidOf(const ObjectName& object, const char* otherwise) const {
    const CONFIG_OID_T* found =
        lookup(catalogue_, object.group.empty() ? rules().group : object.group, object.name);
    return found == nullptr ? otherwise : found->oidstr;
}

void ConfigPage::refuse(const CheckFailure& failure, QWidget* focus) const {
    onudesk::refuse(failure, focus, replyHandle());
}

void ConfigPage::helpBtnClick() {
    openPageHelp(messageText(rules().helpKeyId), currentHelpIndex(),
                 messageText(message::helpFile));
}

} // namespace onudesk
