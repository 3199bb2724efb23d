// SPDX-License-Identifier: MIT
//
// Just enough BER to be the other side of an SNMP conversation, also in ways no library would.
#pragma once

#include "host/snmp_value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace onudesk::host::test {

// One element: tag, length, content.
[[nodiscard]] std::string berElement(std::uint8_t tag, std::string_view content);
[[nodiscard]] std::string berInteger(std::int64_t number, std::uint8_t tag = 2);
[[nodiscard]] std::string berOctets(std::string_view bytes);
[[nodiscard]] std::string berSequence(std::string_view content);
[[nodiscard]] std::string berBindings(const VarBinds& bindings);

// Reads elements one after the other; throws std::runtime_error on anything malformed.
class BerReader {
public:
    explicit BerReader(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool atEnd() const { return bytes_.empty(); }
    [[nodiscard]] std::uint8_t nextTag() const;
    // The content of the next element, whatever its tag.
    std::string_view content();
    std::int64_t integer();
    VarBinds bindings();

private:
    SnmpValue value();
    std::string_view bytes_;
};

} // namespace onudesk::host::test
