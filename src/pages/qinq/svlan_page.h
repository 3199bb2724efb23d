// SPDX-License-Identifier: MIT
//
// What the lists of a port's VLAN ranges share: those that get an outer VLAN, and those that pass
// as they are.
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/port_list_page.h"
#include "pages/qinq/vlan_set.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// A VLAN of a row: a column, an edit of the dialog, an object that is written.
struct SVlanNumber {
    const char* control;
    const char* object;
    int titleId;
    int labelId;
};

inline constexpr int kNotFlexible = 3047; // the ONU does not do flexible QinQ

// What tells the two lists apart. Positions are those of values in a reply.
struct SVlanRules {
    int helpKeyId = 0;
    std::size_t minimumValues = 0;
    std::vector<SVlanNumber> numbers; // the ends of the range first; values 1, 2, … of a reply
    std::size_t otherRange = 0;       // position of its first end, the second follows
    std::size_t portBlocked = 0;      // positions
    std::size_t portCount = 0;
    std::size_t mode = 0;
    int (*modeRefusal)(const std::string& mode) = nullptr; // message id; 0: ranges can be added
    const char* dialogName = nullptr;
    const char* rowStatus = nullptr;
    int dialogTitleId = 0;
    int typedBytes = -1; // in the edits of the dialog
};

// The VLAN ranges of a port that get an outer VLAN, and those that pass untouched.
[[nodiscard]] SVlanRules onuSVlanInsert();
[[nodiscard]] SVlanRules onuSVlanPassThrough();

// Config adds a range, whatever row is selected; Delete removes the selected one.
class SVlanPage : public PortListPage {
    Q_OBJECT
public:
    SVlanPage(Session& session, std::int32_t itemType, SVlanRules ranges, QWidget* parent);

    [[nodiscard]] const SVlanRules& ranges() const { return ranges_; }
    [[nodiscard]] bool isUsed(std::string_view vlan) const { return used_.contains(vlan); }
    // The range that begins with this VLAN was added: its row is selected once it arrives.
    void setAdded(const std::string& firstVlan) { added_ = rowId(decimalOf(firstVlan, 10)); }

    void configBtnClick() override;

protected:
    void prepareRefresh() override;
    void rowArrived(int row, const ReadResult& result) override;

private:
    // What the rows read say of their port.
    struct PortState {
        bool isFull = false;
        bool isBlocked = false;
        std::string mode{};
    };
    [[nodiscard]] CheckFailure refusal() const; // without text: a range can be added
    [[nodiscard]] std::string rowId(const std::string& firstVlan) const {
        return port() + "." + firstVlan;
    }

    const SVlanRules ranges_;
    VlanSet used_;
    PortState state_;
    std::string added_;
};

// Adds a range to the port that the page shows.
class SVlanItem : public ItemDialog {
    Q_OBJECT
public:
    explicit SVlanItem(SVlanPage& page);

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    // Whatever number the row gets.
    [[nodiscard]] std::string instance() const override;

private:
    [[nodiscard]] QWidget& edit(std::size_t number) const;

    SVlanPage& page_;
};

} // namespace onudesk
