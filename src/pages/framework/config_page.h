// SPDX-License-Identifier: MIT
//
// What every configuration page is: panels, buttons and fields, and how they read, show, check,
// write and confirm.
//
//     class TOnuExample : public ConfigPage { … };
//
// A page states its rules and fields as data and calls start() at the end of its constructor. What
// is odd about it is code of its own, in the steps it overrides.
#pragma once

#include "bridge/session.h"
#include "pages/framework/controls.h"
#include "pages/framework/field_set.h"
#include "pages/framework/life_cycle.h"
#include "pages/framework/page_frame.h"
#include "pages/framework/page_rules.h"
#include "pages/framework/write_request.h"
#include "window/object_catalogue.h"
#include "window/reply.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QPushButton>
#include <QTimer>

namespace onudesk {

class ConfigPage : public PageFrame {
    Q_OBJECT
public:
    // Loads the catalogue module of the item type, which the page keeps for all its requests.
    // The session outlives the page.
    ConfigPage(Session& session, std::int32_t itemType, PageRules rules, QWidget* parent);

    QPushButton* configBtn = nullptr;  // null when the rules name none
    QPushButton* refreshBtn = nullptr; // likewise
    QPushButton* helpBtn = nullptr;
    QTimer* Timer1; // 4000 ms after a request, gives refreshBtn back

    [[nodiscard]] std::int32_t itemType() const { return cycle_.itemType(); }
    [[nodiscard]] Session& session() const { return cycle_.session(); }
    [[nodiscard]] const ObjectCatalogue& catalogue() const { return catalogue_; }
    [[nodiscard]] const FieldSet& fields() const { return fields_; }
    [[nodiscard]] const PageRules& rules() const { return cycle_.rules(); }
    // The handle under which replies reach this page.
    [[nodiscard]] std::uint32_t replyHandle() const { return cycle_.handle(); }

    // Registers the page for its first reply and reads.
    void readFirst() { cycle_.readFirst(); }
    // Called when a page that already exists is shown again.
    void updatePage();
    virtual void configBtnClick() { checkAndWrite(); }
    virtual void refreshBtnClick() { cycle_.refresh(); }
    void helpBtnClick();
    void Timer1Timer() { cycle_.timeOut(); }

    // The steps of a write, for the page and its dialogs: makes the request, which is false when it
    // cannot be made; disables the write buttons and starts the timer (both in one: beginWrite);
    // registers the page for the answer and posts.
    [[nodiscard]] WriteRequest newRequest() const;
    void markWriting();
    [[nodiscard]] WriteRequest beginWrite();
    void finishWrite(WriteRequest request) { cycle_.finishWrite(std::move(request)); }
    // The same for one binding. False when the request could not be made.
    bool writeOne(const ObjectName& object, const std::string& value);

    void handleMessage(const platform::WindowMessage& message) { cycle_.handleMessage(message); }

protected:
    // Writes what bindWrite() binds, unless mayWrite() stops it.
    void checkAndWrite();
    // Everything that can stop Config, told to the operator.
    [[nodiscard]] virtual bool mayWrite();
    virtual void bindWrite(WriteRequest& request);
    // Page-specific preparation of a read: emptying tables, choosing a port.
    virtual void prepareRefresh() {}
    // Every reply, when it has set the buttons.
    virtual void handleReply(const ReadResult& result);
    // Shows a decoded reply of the group of the rules with enough values, in the fields.
    virtual void showReply(const ReadResult& result);
    // Reads again, then tells how the write ended.
    virtual void handleWriteReply(void* reply);

    // Calls it for decoded replies with values of a further group.
    void onGroup(std::string resultText, std::function<void(const ReadResult& result)> handler);

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
    [[nodiscard]] LifeCycle& cycle() { return cycle_; }
    // The catalogue as it is now: the page may have been open for long.
    void reloadCatalogue() { catalogue_ = loadCatalogue(itemType()); }
    // The object's OID in the catalogue; `otherwise` where it does not have the object.
    [[nodiscard]] std::string oidOf(const ObjectName& object, const char* otherwise) const;
    void refuse(const CheckFailure& failure, QWidget* focus) const;

private:
    struct OtherGroup {
        std::string resultText;
        std::function<void(const ReadResult& result)> handler;
    };

    ObjectCatalogue catalogue_;
    FieldSet fields_;
    std::vector<OtherGroup> otherGroups_;
    LifeCycle cycle_;
};

// The property in which buttons keep the message id of their caption.
inline constexpr const char* kCaptionId = "captionId";

// A push button that calls a function; Enter in a field never presses it.
QPushButton* makeButton(QWidget* parent, const char* name, int captionId,
                        std::function<void()> onClick);

} // namespace onudesk
