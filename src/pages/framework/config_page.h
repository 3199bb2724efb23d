// SPDX-License-Identifier: MIT
//
// The life cycle that every configuration page shares: read, show, check, write, confirm.
//
//     class TOnuExample : public ConfigPage { … };
//
// A page states its rules and fields as data, builds its controls on listPanel and its buttons on
// bottomPanel, and calls start() at the end of its constructor. What is odd about it is code of its
// own, in the handlers it overrides.
#pragma once

#include "bridge/session.h"
#include "pages/framework/controls.h"
#include "pages/framework/fields.h"
#include "platform/window_messages.h"
#include "snmp/object_catalogue.h"
#include "snmp/reply.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QFrame>
#include <QPushButton>
#include <QTimer>

class QCheckBox;

namespace onudesk {

// What a decoded reply, or one that could not be decoded, does to the configuration buttons.
enum class OnDecoded { enables, followsFlag };
enum class OnFailedDecode { enables, disables, leaves };
enum class OnWriteReply { refreshesAndNotifies, refreshes, notifies, ignored };
// waiting: request buttons disabled and Timer1 running; ready: everything usable.
enum class StartState { waiting, ready };

struct PageRules {
    StartState start = StartState::waiting;
    OnDecoded onDecoded = OnDecoded::enables;
    OnFailedDecode onFailedDecode = OnFailedDecode::enables;
    OnWriteReply onWriteReply = OnWriteReply::refreshesAndNotifies;
    bool readsReplies = true;
    std::size_t minimumValues = 0;
    std::string resultText{}; // replies with another result text are not for the page; empty: any
    bool rereadsWhenShown = false;
    int helpKeyId = 0; // message whose text is the page's key in the help index
};

class ConfigPage : public QFrame, public platform::WindowReceiver {
    Q_OBJECT
public:
    // Loads the catalogue module of the item type, which the page keeps for all its requests.
    // The session outlives the page.
    ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent);
    // Withdraws the window's handle and every route that leads to it.
    ~ConfigPage() override;
    ConfigPage(const ConfigPage&) = delete;
    ConfigPage& operator=(const ConfigPage&) = delete;

    QPushButton* configBtn = nullptr;
    QPushButton* refreshBtn = nullptr;
    QPushButton* helpBtn = nullptr;
    QTimer* Timer1; // 4000 ms after a request, gives refreshBtn back

    [[nodiscard]] std::int32_t itemType() const { return itemType_; }
    // The handle under which replies reach this page.
    [[nodiscard]] std::uint32_t replyHandle() const { return registration_.handle(); }

    // Called when a page that already exists is shown again.
    void updatePage();
    void refreshBtnClick();
    void helpBtnClick();
    void Timer1Timer();
    void FrameResize();

    void handleMessage(const platform::WindowMessage& message) override;

protected:
    virtual void configBtnClick();
    // Page-specific preparation of a read: emptying tables, choosing a port.
    virtual void prepareRefresh() {}
    // Shows a decoded reply with enough values. Fields are shown before.
    virtual void fillPage(const ReadResult& result);

    // Ends construction: `request` are the buttons that refresh disables and replies give back,
    // besides configBtn; `write` those that a write disables, besides configBtn and refreshBtn.
    void start(std::vector<QAbstractButton*> request = {},
               std::vector<QAbstractButton*> write = {});
    // The ordinary fields, whose controls exist by now.
    void setFields(std::vector<Field> fields);
    [[nodiscard]] Field& field(const std::string& control);

    // Checks fields in order; the first bad one is told and gets the focus.
    [[nodiscard]] bool checkFields();
    // Creates the request, disables the write buttons and starts the timer; null ends the click.
    [[nodiscard]] CodeParaPtr beginWrite();
    // Adds a binding, unless the catalogue has no such object.
    void bind(DllClientCodePara& request, const std::string& group, const std::string& object,
              const std::string& value, const std::string& suffix, std::size_t length = 0) const;
    // One binding per field that is written, in order, for the ONU.
    void bindFields(DllClientCodePara& request) const;
    // Registers for the answer and posts.
    void finishWrite(CodeParaPtr request);

    void refuse(const CheckFailure& failure, QWidget* focus) const;
    void startTimer();

    [[nodiscard]] Session& session() const { return session_; }
    [[nodiscard]] const ObjectCatalogue& catalogue() const { return catalogue_; }
    [[nodiscard]] const PageRules& rules() const { return rules_; }

    QFrame* listPanel;   // controls
    QFrame* bottomPanel; // buttons, kept centred below

    void resizeEvent(QResizeEvent* event) override;

private:
    struct BoundField {
        Field field;
        QWidget* control = nullptr;
        QCheckBox* box = nullptr;
    };

    void readReply(void* reply);
    void writeReply(void* reply);
    void enableRequestButtons(bool enabled);
    void showFields(const ReadResult& result);
    void orderTabs();
    [[nodiscard]] static FieldState boundState(const BoundField& bound);

    Session& session_;
    const std::int32_t itemType_;
    const PageRules rules_;
    const ObjectCatalogue catalogue_;
    platform::WindowRegistration registration_;
    std::vector<QAbstractButton*> requestButtons_;
    std::vector<QAbstractButton*> writeButtons_;
    std::vector<BoundField> fields_;
};

// Connects a click to a member of the page, keeping keyboard focus rules simple.
QPushButton* makeButton(QWidget* parent, const char* name, int captionId,
                        std::function<void()> onClick);

// The list panel takes the frame's height less the bottom panel's; the bottom panel sits below,
// centred in an area of the given width.
void layoutPanels(const QWidget& frame, QWidget& listPanel, QWidget& bottomPanel, int areaWidth);

} // namespace onudesk
