// SPDX-License-Identifier: MIT
#include "desk/desk_window.h"

#include "desk/onu_dialog.h"
#include "desk/profiles_dialog.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>

namespace onudesk::desk {

namespace {

constexpr QSize kInitialSize(960, 600);
constexpr int kTraceHeight = 190;

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

// Texts from files and agents are shown as they stand, never as markup.
QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton preset) {
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(preset);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

host::OnuTarget makeTarget(const host::OnuTarget& address, const OnuEntry& onu,
                           const AccessProfile& profile, std::uint32_t localeId) {
    host::OnuTarget target = address;
    target.version = profile.version;
    target.readCommunity = profile.readCommunity;
    target.writeCommunity = profile.writeCommunity;
    if (profile.version == host::SnmpVersion::v3) {
        target.v3 = profile.v3;
    }
    static_cast<void>(host::parseOnuIndex(onu.onu, target)); // checked when it was entered
    target.menuFileName = onu.menuFile;
    target.rootCaption = onu.name;
    target.localeId = onu.localeId != 0 ? onu.localeId : localeId;
    return target;
}

DeskWindow::DeskWindow(DeskOptions options, Inventory inventory)
    : onuTable(new OnuTable(this)), tracePane(new TracePane(this)), options_(std::move(options)),
      inventory_(std::move(inventory)), feed_([this] { showTrace(); }) {
    setObjectName(QStringLiteral("DeskWindow"));
    setWindowTitle(QStringLiteral("OnuDesk[*]"));
    setCentralWidget(onuTable);
    addDockWidget(Qt::BottomDockWidgetArea, tracePane);
    makeActions();
    makeMenus();
    resize(kInitialSize);
    resizeDocks({tracePane}, {kTraceHeight}, Qt::Vertical);
    connect(onuTable, &QTableWidget::cellDoubleClicked, this, &DeskWindow::configure);
    connect(onuTable, &QTableWidget::itemSelectionChanged, this, &DeskWindow::enableUsable);
    onuTable->fill(inventory_.onus(), {});
    onuTable->setFocus();
    enableUsable();
    statusBar()->showMessage(tr("Ready"));
}

DeskWindow::~DeskWindow() = default;

QAction* DeskWindow::makeAction(const QString& text, const char* objectName,
                                const QKeySequence& shortcut, const QString& hint,
                                void (DeskWindow::*slot)()) {
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(objectName));
    action->setShortcut(shortcut);
    action->setToolTip(hint);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void DeskWindow::makeActions() {
    addAct = makeAction(tr("&Add…"), "addAct", QKeySequence::New, tr("Add an ONU to the list"),
                        &DeskWindow::addOnu);
    editAct = makeAction(tr("&Edit…"), "editAct", Qt::Key_F2, tr("Change the selected entry"),
                         &DeskWindow::editOnu);
    removeAct = makeAction(tr("&Remove"), "removeAct", QKeySequence::Delete,
                           tr("Remove the selected entry from the list"), &DeskWindow::removeOnu);
    configureAct =
        makeAction(tr("&Configure…"), "configureAct", Qt::Key_Return,
                   tr("Open the configuration window of the selected ONU"), &DeskWindow::configure);
    profilesAct = makeAction(tr("Access &profiles…"), "profilesAct", {},
                             tr("How the agents are reached: communities and SNMPv3 users"),
                             &DeskWindow::editProfiles);
    saveAct = makeAction(tr("&Save"), "saveAct", QKeySequence::Save,
                         tr("Try again to save the list"), &DeskWindow::saveNow);
    quitAct = makeAction(tr("&Quit"), "quitAct", QKeySequence::Quit, tr("Close the program"),
                         &DeskWindow::quit);
    // Keys that mean something else in the trace.
    for (QAction* action : {configureAct, removeAct}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        onuTable->addAction(action);
    }
}

void DeskWindow::makeMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addActions({saveAct, quitAct});
    QMenu* onu = menuBar()->addMenu(tr("&ONU"));
    onu->addActions({configureAct, addAct, editAct, removeAct});
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(profilesAct);
    view->addAction(tracePane->toggleViewAction());
    QToolBar* bar = addToolBar(tr("ONUs"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addAction(configureAct);
    bar->addSeparator();
    bar->addActions({addAct, editAct, removeAct});
    bar->addSeparator();
    bar->addAction(profilesAct);
}

void DeskWindow::enableUsable() {
    const bool selected = !busy_ && !onuTable->selectedName().empty();
    for (QAction* action : {editAct, removeAct, configureAct}) {
        action->setEnabled(selected);
    }
    addAct->setEnabled(!busy_);
    profilesAct->setEnabled(!busy_);
    saveAct->setEnabled(!busy_ && isWindowModified());
    onuTable->setEnabled(!busy_);
}

void DeskWindow::setBusy(bool busy) {
    busy_ = busy;
    enableUsable();
    if (!busy) {
        onuTable->setFocus();
    }
}

void DeskWindow::tell(const QString& title, const std::string& text, const QString& advice) {
    statusBar()->showMessage(shown(text));
    ask(this, QMessageBox::Warning, title, shown(text) + advice, QMessageBox::Ok, QMessageBox::Ok);
}

void DeskWindow::openInventory(const std::filesystem::path& file) {
    file_.emplace(file);
    const Result<Inventory> loaded = file_->load();
    inventory_ = loaded ? *loaded : Inventory();
    onuTable->fill(inventory_.onus(), {});
    enableUsable();
    if (!loaded) {
        tell(
            tr("List of ONUs not loaded"), loaded.error(),
            tr("\n\nThe list is empty. When you change it, this file is kept under another name."));
    }
}

void DeskWindow::selectOnu(const std::string& onu) {
    for (const auto& [name, entry] : inventory_.onus()) {
        if (entry.onu == onu) {
            onuTable->fill(inventory_.onus(), name);
            return;
        }
    }
}

std::string DeskWindow::askForOnu(const QString& title, const OnuEntry& onu,
                                  const std::string& replaced) {
    std::string name;
    OnuDialog dialog(
        title, onu,
        {.inventory = inventory_,
         .menuDirectory = options_.clientDirectory / "CONF" / "snmp",
         .onNewProfile = [this] { inventoryChanged(onuTable->selectedName()); }},
        [&](const OnuEntry& entered) {
            name = entered.name;
            return inventory_.putOnu(entered, replaced);
        },
        this);
    return dialog.exec() == QDialog::Accepted ? name : std::string();
}

void DeskWindow::addOnu() {
    const std::string name = askForOnu(tr("Add ONU"), {}, {});
    if (!name.empty()) {
        inventoryChanged(name);
    }
}

void DeskWindow::editOnu() {
    const auto onu = inventory_.onus().find(onuTable->selectedName());
    if (onu == inventory_.onus().end()) {
        return;
    }
    const std::string name = askForOnu(tr("Edit ONU"), onu->second, onuTable->selectedName());
    if (!name.empty()) {
        inventoryChanged(name);
    }
}

void DeskWindow::removeOnu() {
    const std::string name = onuTable->selectedName();
    const auto answer = ask(this, QMessageBox::Question, tr("Remove ONU"),
                            tr("Remove \"%1\" from the list?").arg(shown(name)),
                            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes) {
        inventory_.removeOnu(name);
        inventoryChanged({});
    }
}

void DeskWindow::editProfiles() {
    ProfilesDialog dialog(
        inventory_, [this] { inventoryChanged(onuTable->selectedName()); }, this);
    dialog.exec();
}

void DeskWindow::inventoryChanged(const std::string& selected) {
    onuTable->fill(inventory_.onus(), selected);
    setWindowModified(file_.has_value());
    save();
    enableUsable();
}

bool DeskWindow::save() {
    if (!isWindowModified()) {
        return true;
    }
    const Result<InventoryFile::Saved> saved = file_->save(inventory_);
    if (!saved) {
        tell(tr("List of ONUs not saved"), saved.error());
        return false;
    }
    setWindowModified(false);
    statusBar()->showMessage(
        saved->kept
            ? tr("Saved; the file that was there is now %1").arg(shown(saved->kept->string()))
            : tr("Saved"));
    return true;
}

void DeskWindow::saveNow() {
    save();
    enableUsable();
}

bool DeskWindow::mayClose() {
    if (!isWindowModified()) {
        return true;
    }
    const auto answer =
        ask(this, QMessageBox::Warning, tr("List of ONUs not saved"),
            tr("The list of ONUs has changes that are not saved."),
            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!showing_ && mayClose());
}

void DeskWindow::quit() {
    close();
}

Result<void> DeskWindow::loadClient() {
    if (!host_) {
        Result<std::unique_ptr<host::ClientHost>> host =
            host::ClientHost::open(options_.clientDirectory, options_.engine);
        if (!host) {
            return Error{host.error()};
        }
        host_ = std::move(host).value();
    }
    return {};
}

void DeskWindow::configure() {
    const auto onu = inventory_.onus().find(onuTable->selectedName());
    if (busy_ || onu == inventory_.onus().end()) {
        return;
    }
    setBusy(true);
    statusBar()->showMessage(tr("Looking up %1").arg(shown(onu->second.agent)));
    lookup_.start(onu->second.agent,
                  [this, entry = onu->second](const Result<host::OnuTarget>& address) {
                      showForm(entry, address);
                      setBusy(false);
                  });
}

void DeskWindow::showForm(const OnuEntry& onu, const Result<host::OnuTarget>& address) {
    if (!address) {
        tell(tr("Agent not found"), address.error());
        return;
    }
    if (const Result<void> loaded = loadClient(); !loaded) {
        tell(tr("Configuration window not loaded"), loaded.error());
        return;
    }
    const AccessProfile& profile = inventory_.profiles().at(onu.profile);
    // Of all profiles: what an ONU configured before still answers is traced, too.
    std::vector<std::string> secrets;
    for (const auto& [name, known] : inventory_.profiles()) {
        std::ranges::move(host::secretsOf(known.readCommunity, known.writeCommunity, known.v3),
                          std::back_inserter(secrets));
    }
    host_->engine().setObserver(
        traceObserver(feed_, host::SecretMask(secrets, host_->secretObjects())));
    statusBar()->showMessage(tr("Configuring %1").arg(shown(onu.name)));
    showing_ = true;
    host_->show(*static_cast<QApplication*>(QCoreApplication::instance()),
                makeTarget(*address, onu, profile, options_.localeId));
    showing_ = false;
}

void DeskWindow::showTrace() {
    std::deque<QString> lines;
    for (TraceEntry& entry : feed_.take()) {
        lines.push_back(std::move(entry.line));
        if (!entry.outcome.isEmpty()) {
            statusBar()->showMessage(entry.outcome);
        }
    }
    tracePane->addLines(lines);
}

} // namespace onudesk::desk
