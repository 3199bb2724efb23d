// SPDX-License-Identifier: MIT
//
// The window of onudesk: the list of ONUs and the trace of what the configuration window and the
// agents say to each other.
#pragma once

#include "desk/agent_lookup.h"
#include "desk/inventory_file.h"
#include "desk/onu_table.h"
#include "desk/trace_feed.h"
#include "desk/trace_pane.h"
#include "host/client_host.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <QAction>
#include <QMainWindow>

namespace onudesk::desk {

struct DeskOptions {
    std::filesystem::path clientDirectory;
    std::uint32_t localeId = 1033; // for ONUs that state none
    host::EngineOptions engine{};
};

// What ClientHost::show() needs to know of the entry beside the agent's address, which `address`
// brings.
[[nodiscard]] host::OnuTarget makeTarget(const host::OnuTarget& address, const OnuEntry& onu,
                                         const AccessProfile& profile, std::uint32_t localeId);

// One at a time in a process (see ClientHost). Edits are saved as they are made; an edit that
// could not be saved stays in the window, and Save tries again.
class DeskWindow : public QMainWindow {
public:
    // Shows the inventory, which is in no file.
    explicit DeskWindow(DeskOptions options, Inventory inventory = {});
    ~DeskWindow() override;
    DeskWindow(const DeskWindow&) = delete;
    DeskWindow& operator=(const DeskWindow&) = delete;

    OnuTable* onuTable;
    TracePane* tracePane;
    QAction* addAct = nullptr;
    QAction* editAct = nullptr;
    QAction* removeAct = nullptr;
    QAction* configureAct = nullptr;
    QAction* profilesAct = nullptr;
    QAction* saveAct = nullptr; // enabled while there are edits that are not in the file
    QAction* quitAct = nullptr;

    // Shows the inventory of the file and keeps edits there from now on. When it cannot be loaded
    // the operator is told and the list is empty; the first save keeps the bad file beside.
    void openInventory(const std::filesystem::path& file);
    // Selects the first entry with that "OLT.PON.ONU", if any.
    void selectOnu(const std::string& onu);

    [[nodiscard]] const Inventory& inventory() const { return inventory_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QAction* makeAction(const QString& text, const char* objectName, const QKeySequence& shortcut,
                        const QString& hint, void (DeskWindow::*slot)());
    void makeActions();
    void makeMenus();
    void enableUsable();

    void addOnu();
    void editOnu();
    void removeOnu();
    void editProfiles();
    void configure();
    void quit();
    void saveNow();

    // Empty when the operator cancelled, else the entry's name.
    std::string askForOnu(const QString& title, const OnuEntry& onu, const std::string& replaced);
    void inventoryChanged(const std::string& selected);
    bool save();
    [[nodiscard]] bool mayClose();
    void showForm(const OnuEntry& onu, const Result<host::OnuTarget>& address);
    [[nodiscard]] Result<void> loadClient();
    void setBusy(bool busy);
    void showTrace();
    // A warning box; the text also goes to the status bar.
    void tell(const QString& title, const std::string& text, const QString& advice = {});

    DeskOptions options_;
    Inventory inventory_;
    std::optional<InventoryFile> file_;
    bool busy_ = false;    // from Configure… to the end of the configuration window
    bool showing_ = false; // the configuration window is open
    AgentLookup lookup_;
    TraceFeed feed_;
    std::unique_ptr<host::ClientHost> host_; // from the first Configure… on
};

} // namespace onudesk::desk
