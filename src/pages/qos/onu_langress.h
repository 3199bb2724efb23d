// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <initializer_list>
#include <string>

#include <QComboBox>

namespace onudesk {

// Policing of what each Ethernet port receives and shaping of what it sends.
class TOnuLangress : public ListPage {
    Q_OBJECT
public:
    TOnuLangress(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& switches() const { return switches_; }
    [[nodiscard]] const ValueMap& directions() const { return directions_; }

protected:
    void openRow(int row) override;

private:
    const ValueMap switches_;
    const ValueMap directions_;
};

// Writes one direction or both, each with a request of its own.
class TOnuLangressItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuLangressItem(TOnuLangress& page, int row);

    QComboBox* choiceComb = nullptr;
    QComboBox* enEnableComb = nullptr;
    QComboBox* exEnableComb = nullptr;

    void choiceCombChange();
    void enEnableCombChange();
    void exEnableCombChange();
    void okBtnClick() override;

private:
    [[nodiscard]] std::string direction() const;
    void enableRates(const QComboBox& enable, std::initializer_list<const char*> edits);

    TOnuLangress& page_;
};

} // namespace onudesk
