// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/port_list_page.h"

#include <cstddef>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QLineEdit>

namespace onudesk {

// The slots of a port's classification rules. A rule gives any traffic of the port, or what matches
// some header fields, a queue and a priority. Empty slots are filled, full ones emptied.
class TOnuCls : public PortListPage {
    Q_OBJECT
public:
    TOnuCls(Session& session, std::int32_t itemType, QWidget* parent);

    // "all" is chosen behind the ports; reads and writes then name port 1.
    [[nodiscard]] bool showsAllPorts() const;
    [[nodiscard]] std::string port() const override;
    // A rule listed matches any traffic, or the fields of that signature: twelve texts in the order
    // of the columns, each with ";" behind it.
    [[nodiscard]] bool listsAnyRule() const;
    [[nodiscard]] bool listsSignature(const std::string& signature) const;

    void configBtnClick() override;
    void deleteBtnClick();

protected:
    void rowArrived(int row, const ReadResult& result) override;

private:
    [[nodiscard]] bool isFilled(int row) const;
};

// Fills a slot.
class TOnuClsItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuClsItem(TOnuCls& page, int row);

    QCheckBox* PhyPortChBox = nullptr;

    void PhyPortChBoxClick();

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    [[nodiscard]] std::string instance() const override;

private:
    [[nodiscard]] QLineEdit* edit(const std::string& name) const;
    [[nodiscard]] std::size_t chosen() const;
    [[nodiscard]] std::string signature() const;
    void enableMatches(bool unticked, bool ticked);
    void matchBoxClick(bool checked);

    TOnuCls& page_;
    std::vector<QCheckBox*> boxes_; // of the header fields, in the order of their columns
    std::vector<QLineEdit*> edits_; // likewise
};

} // namespace onudesk
