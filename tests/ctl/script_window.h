// SPDX-License-Identifier: MIT
//
// A window with a page, item dialogs and questions, small enough to know what every step must do.
#pragma once

#include "ctl/driven_window.h"
#include "platform/prompter.h"

#include <QDialog>
#include <QFrame>
#include <QStringList>

class QLineEdit;
class QTableWidget;

namespace onudesk::ctl {

class ScriptWindow : public DrivenWindow {
public:
    ScriptWindow();

    // What the handlers saw, oldest first.
    QStringList log;
    // How often somebody must ask until everything is answered; negative: for ever.
    mutable int busy = 0;
    std::int32_t opened = 0;
    // Runs whenever somebody finds the window busy.
    std::function<void()> whileBusy;

    [[nodiscard]] QDialog& dialog() { return window_; }

    [[nodiscard]] QWidget* window() const override;
    [[nodiscard]] QWidget* page() const override { return page_; }
    Result<QWidget*> openPage(std::int32_t itemType) override;
    [[nodiscard]] QString captionOf(std::int32_t /*itemType*/) const override {
        return QStringLiteral("Rows");
    }
    [[nodiscard]] bool observed() const override { return true; }
    [[nodiscard]] bool answered() const override { return quiet(); }
    [[nodiscard]] bool quiet() const override;

private:
    void addEdits();
    void addChoices();
    void addTable();
    void addButtons();
    void openItem(const QString& name);

    QDialog window_;
    QFrame* page_ = nullptr;
    QTableWidget* table_ = nullptr;
};

} // namespace onudesk::ctl
