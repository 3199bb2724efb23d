// SPDX-License-Identifier: MIT
//
// The configuration window: title bar, tree of items, page area.
#pragma once

#include "bridge/session.h"
#include "mainform/menu_catalogue.h"
#include "mainform/snmp_panel.h"
#include "pages/framework/config_page.h"
#include "pages/framework/title_bar.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <QDialog>
#include <QTreeWidget>

namespace onudesk {

// One window per session. Pages are made on first use and kept until the window closes; each new
// one sends its first read. User-interface thread only.
class TConfigMainForm : public QDialog {
    Q_OBJECT
public:
    // Loads the help index. The session outlives the window and is filled before it is shown.
    explicit TConfigMainForm(Session& session);
    ~TConfigMainForm() override;
    TConfigMainForm(const TConfigMainForm&) = delete;
    TConfigMainForm& operator=(const TConfigMainForm&) = delete;

    TitleBar* TitlePanel = nullptr;
    QFrame* WorkPanel = nullptr;
    QFrame* Panel1 = nullptr; // page area, tree and settings panel
    QTreeWidget* ConfigItemTree = nullptr;
    SnmpPanel* snmpGroup = nullptr;

    // What F1 runs.
    [[nodiscard]] const std::string& helpCommand() const { return helpCommand_; }
    [[nodiscard]] std::int32_t currentItemType() const { return session_.context.currentItemType; }
    // Null when no page is shown.
    [[nodiscard]] ConfigPage* currentPage() const { return currentPage_; }
    [[nodiscard]] std::size_t pageCount() const { return pages_.size(); }

    // First call only: title, tree, and the settings panel or the single item.
    void FormActivate();
    void ConfigItemTreeClick();
    // Unregisters the routes of every page; the pages are destroyed with the window.
    void FormClose();

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildFrame();
    void buildTree(const Menu& menu);
    void openItem(std::int32_t itemType);
    void detachPages();
    void showPage(bool isNew);
    void layoutWork();
    void layoutPage();
    void centreSettings();
    [[nodiscard]] std::string title() const;
    [[nodiscard]] bool singleItem() const { return session_.context.subIndex != -1; }
    [[nodiscard]] Qt::Edges edgesAt(QPoint position) const;

    void resizeBy(QPoint moved);

    struct Resizing {
        Qt::Edges edges;
        QPoint grip; // where the mouse was when it began, on the screen
        QRect geometry;
    };

    Session& session_;
    const std::string helpBase_;
    std::string helpCommand_;
    std::map<std::int32_t, std::unique_ptr<ConfigPage>> pages_;
    ConfigPage* currentPage_ = nullptr;
    bool activated_ = false;
    std::optional<Resizing> resizing_;
};

} // namespace onudesk
