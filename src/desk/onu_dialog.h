// SPDX-License-Identifier: MIT
#pragma once

#include "desk/entry_dialog.h"

#include <filesystem>
#include <functional>

#include <QPushButton>

namespace onudesk::desk {

// Edits one ONU.
class OnuDialog : public EntryDialog {
public:
    struct Context {
        Inventory& inventory;                // its profiles are offered, and new ones go into it
        std::filesystem::path menuDirectory; // its menu files are offered
        std::function<void()> onNewProfile;
    };
    using Take = std::function<Checked(const OnuEntry& onu)>;

    OnuDialog(const QString& title, const OnuEntry& onu, Context context, Take take,
              QWidget* parent);

    QLineEdit* nameEdt;
    QLineEdit* agentEdt;
    QLineEdit* onuEdt;
    QComboBox* menuCmb; // any file name can be typed
    QComboBox* localeCmb;
    QComboBox* profileCmb;
    QPushButton* newProfileBtn;

protected:
    [[nodiscard]] Checked take() override;

private:
    void fillMenus(const std::string& menuFile);
    void fillLocales(std::uint32_t localeId);
    void fillProfiles(const std::string& profile);
    void addProfile();

    Context context_;
    Take take_;
};

} // namespace onudesk::desk
