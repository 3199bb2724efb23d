// SPDX-License-Identifier: MIT
#pragma once

#include "desk/entry_dialog.h"

#include <functional>

namespace onudesk::desk {

// Edits one access profile. What the version and level do not use is disabled and kept.
class ProfileDialog : public EntryDialog {
public:
    using Take = std::function<Checked(const AccessProfile& profile)>;

    ProfileDialog(const QString& title, const AccessProfile& profile, Take take, QWidget* parent);

    QLineEdit* nameEdt;
    QComboBox* versionCmb;
    QLineEdit* readCommunityEdt;
    QLineEdit* writeCommunityEdt;
    QLineEdit* userEdt;
    QComboBox* levelCmb;
    QComboBox* authProtocolCmb;
    QLineEdit* authPassphraseEdt;
    QComboBox* privProtocolCmb;
    QLineEdit* privPassphraseEdt;
    QLineEdit* contextEdt;

protected:
    [[nodiscard]] Checked take() override;

private:
    void enableUsed();
    [[nodiscard]] AccessProfile entered() const;

    Take take_;
};

} // namespace onudesk::desk
