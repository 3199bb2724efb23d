// SPDX-License-Identifier: MIT
//
// Display texts and the codes behind them, in both directions.
//
//     const ValueMap supported({{messageText(message::no), "0"}, {messageText(message::yes),
//     "1"}});
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace onudesk {

struct ValuePair {
    std::string text;  // as shown
    std::string value; // decimal text of the SNMP integer
};

// Display texts must not coincide with codes of other pairs. The pairs are kept beside the two-way
// map, so that codes stay right when texts are missing or equal.
class ValueMap {
public:
    ValueMap() = default;
    // All pairs, completed.
    explicit ValueMap(const std::vector<ValuePair>& pairs);

    // The numbers from `first` to `last`, each its own display text, in their order.
    [[nodiscard]] static ValueMap numbers(int first, int last);

    void addPair(std::string text, std::string value);
    // Adds the reverse entry of every pair and sorts the pairs by the bytes of their texts.
    void complete();

    // The other half of a pair: the text of a code or the code of a text.
    [[nodiscard]] std::optional<std::string> translate(const std::string& key) const;
    [[nodiscard]] bool hasValue(const std::string& value) const;
    // The display text of a code, empty when the map does not have it.
    [[nodiscard]] std::string textOf(const std::string& value) const;
    // The rows of a combo, in order.
    [[nodiscard]] const std::vector<ValuePair>& pairs() const { return pairs_; }

private:
    std::map<std::string, std::string> entries_;
    std::vector<ValuePair> pairs_;
};

} // namespace onudesk
