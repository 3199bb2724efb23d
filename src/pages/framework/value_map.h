// SPDX-License-Identifier: MIT
//
// Display texts and the codes behind them, in both directions.
//
//     const ValueMap supported({{messageText(message::no), "0"}, {messageText(message::yes),
//     "1"}});
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace onudesk {

struct ValuePair {
    std::string text;  // as shown
    std::string value; // decimal text of the SNMP integer
};

// Never changes once it is made, so copies share one list. Texts may be missing or equal: codes
// stay right all the same.
class ValueMap {
public:
    // Of no codes at all.
    ValueMap() = default;
    // In the order in which boxes list them: that of the bytes of their texts.
    explicit ValueMap(std::vector<ValuePair> pairs);

    // In the order given.
    [[nodiscard]] static ValueMap inOrder(std::vector<ValuePair> pairs);
    // The numbers from `first` to `last`, each its own display text, in their order.
    [[nodiscard]] static ValueMap numbers(int first, int last);

    // The same codes, of which an unknown one leaves a control as it is; else it clears it.
    [[nodiscard]] ValueMap keepingUnknown() const;
    [[nodiscard]] bool keepsUnknown() const { return keepsUnknown_; }

    [[nodiscard]] bool empty() const { return pairs().empty(); }
    [[nodiscard]] bool hasValue(const std::string& value) const { return find(value) != nullptr; }
    // The display text of a code, empty when the map does not have it.
    [[nodiscard]] std::string textOf(const std::string& value) const;
    // The rows of a combo, in order.
    [[nodiscard]] const std::vector<ValuePair>& pairs() const;

private:
    [[nodiscard]] const ValuePair* find(const std::string& value) const;

    std::shared_ptr<const std::vector<ValuePair>> pairs_;
    bool keepsUnknown_ = false;
};

} // namespace onudesk
