// SPDX-License-Identifier: MIT
//
// The life cycle that every configuration page shares: read, show, check, write, confirm.
//
//     class TOnuExample : public ConfigPage { … };
//
// A page states its rules and fields as data and calls start() at the end of its constructor. What
// is odd about it is code of its own, in the steps it overrides.
#pragma once

#include "bridge/session.h"
#include "env/message_ids.h"
#include "pages/framework/controls.h"
#include "pages/framework/field_set.h"
#include "pages/framework/page_frame.h"
#include "pages/framework/write_request.h"
#include "platform/window_messages.h"
#include "window/object_catalogue.h"
#include "window/reply.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QPushButton>
#include <QTimer>

namespace onudesk {

// What a decoded reply, or one that could not be decoded, does to the configuration buttons.
enum class OnDecoded { enables, followsFlag };
enum class OnFailedDecode { enables, disables, leaves };
enum class OnWriteReply { refreshesAndNotifies, refreshes, notifies, ignored };
// waiting: request buttons disabled and Timer1 running; ready: everything usable.
enum class StartState { waiting, ready };

struct PageButton {
    const char* name = nullptr; // object name; null: the page has no such button
    int captionId = 0;
};

struct PageRules {
    int helpKeyId = 0;               // message whose text is the page's key in the help index
    std::string group = "maintable"; // of objects named without one
    PageButton config{"configBtn", message::config};
    PageButton refresh{"refreshBtn", message::refresh};
    StartState start = StartState::waiting;
    bool rereadsWhenShown = false;

    bool refreshEmpties = false; // the fields

    OnDecoded onDecoded = OnDecoded::enables;
    OnFailedDecode onFailedDecode = OnFailedDecode::enables;
    bool flagSetsRefresh = false;  // refreshBtn follows the completion flag, too
    std::string resultText{};      // other result texts go to otherReply(); empty: none do
    std::size_t minimumValues = 0; // shorter replies are not shown

    OnWriteReply onWriteReply = OnWriteReply::refreshesAndNotifies;
};

class ConfigPage : public PageFrame, public platform::WindowReceiver {
    Q_OBJECT
public:
    // Loads the catalogue module of the item type, which the page keeps for all its requests.
    // The session outlives the page.
    ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent);
    // Withdraws the window's handle and every route that leads to it.
    ~ConfigPage() override;
    ConfigPage(const ConfigPage&) = delete;
    ConfigPage& operator=(const ConfigPage&) = delete;

    QPushButton* configBtn = nullptr;  // null when the rules name none
    QPushButton* refreshBtn = nullptr; // likewise
    QPushButton* helpBtn = nullptr;
    QTimer* Timer1; // 4000 ms after a request, gives refreshBtn back

    [[nodiscard]] std::int32_t itemType() const { return itemType_; }
    [[nodiscard]] Session& session() const { return session_; }
    [[nodiscard]] const ObjectCatalogue& catalogue() const { return catalogue_; }
    [[nodiscard]] const FieldSet& fields() const { return fields_; }
    [[nodiscard]] const PageRules& rules() const { return rules_; }
    // The handle under which replies reach this page.
    [[nodiscard]] std::uint32_t replyHandle() const { return registration_.handle(); }

    // Called when a page that already exists is shown again.
    void updatePage();
    virtual void configBtnClick() { checkAndWrite(); }
    virtual void refreshBtnClick();
    void helpBtnClick();
    void Timer1Timer();

    // The steps of a write, for the page and its dialogs: makes the request, which is false when it
    // cannot be made; disables the write buttons and starts the timer (both in one: beginWrite);
    // registers the page for the answer and posts.
    [[nodiscard]] WriteRequest newRequest() const;
    void markWriting();
    [[nodiscard]] WriteRequest beginWrite();
    void finishWrite(WriteRequest request);

    void handleMessage(const platform::WindowMessage& message) override;

protected:
    // Writes what bindWrite() binds, unless mayWrite() stops it.
    void checkAndWrite();
    // Everything that can stop Config, told to the operator.
    [[nodiscard]] virtual bool mayWrite();
    virtual void bindWrite(WriteRequest& request);
    // Page-specific preparation of a read: emptying tables, choosing a port.
    virtual void prepareRefresh() {}
    // Everything that can stop a decoded reply with enough values from being shown.
    [[nodiscard]] virtual bool mayShow(const ReadResult& /*result*/) { return true; }
    // Shows a decoded reply with enough values. Fields are shown before.
    virtual void fillPage(const ReadResult& result);
    // Takes a decoded reply of another group than that of the rules.
    virtual void otherReply(const ReadResult& result);

    // A form of the fields, one below the other, in the middle of listPanel or in a centred panel.
    // Returns its widget, whose layout is a grid. With titles as many fields stand side by side,
    // under their titles.
    QWidget* buildForm(std::vector<Field> fields, const std::vector<int>& titleIds = {});
    void buildCentredForm(std::vector<Field> fields);
    // A button before refreshBtn that refresh disables and replies give back, as configBtn.
    QPushButton* addRequestButton(const char* name, int captionId, std::function<void()> onClick);
    // Ends construction: `request` are further buttons that refresh disables and replies give back;
    // `write` those that a write disables, besides configBtn and refreshBtn.
    void start(const std::vector<QAbstractButton*>& request = {},
               const std::vector<QAbstractButton*>& write = {});

    [[nodiscard]] FieldSet& fields() { return fields_; }
    void refuse(const CheckFailure& failure, QWidget* focus) const;
    void startTimer();

private:
    void readReply(void* reply);
    void writeReply(void* reply);
    void enableRequestButtons(bool enabled);
    void enableRefresh(bool enabled);

    Session& session_;
    const std::int32_t itemType_;
    const PageRules rules_;
    const ObjectCatalogue catalogue_;
    platform::WindowRegistration registration_;
    std::vector<QAbstractButton*> requestButtons_;
    std::vector<QAbstractButton*> writeButtons_;
    FieldSet fields_;
};

// A push button that calls a function; Enter in a field never presses it.
QPushButton* makeButton(QWidget* parent, const char* name, int captionId,
                        std::function<void()> onClick);

} // namespace onudesk
