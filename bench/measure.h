// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::bench {

using Clock = std::chrono::steady_clock;

[[nodiscard]] double millisecondsSince(Clock::time_point begin);
// Of at least one value.
[[nodiscard]] double median(std::vector<double> values);

struct Run {
    double milliseconds = 0;
    std::string output; // standard output; standard error goes nowhere
    int status = -1;    // -1 when it did not exit by itself
};

// Runs a program, looked for along PATH, from its start to its end.
[[nodiscard]] Run run(std::vector<std::string> words);

// Milliseconds of one snmpbulkwalk below an OID, from start to end, at an agent on this machine;
// nothing when it does not get exactly so many values.
[[nodiscard]] std::optional<double> walk(std::uint16_t port, const std::string& oid,
                                         std::size_t values);

// Makes the end of a recording: a walk that meets the end of everything would tell of it.
inline constexpr const char* kBehindEverything = "1.3.6.1.4.1.27316.1|2|1\n";

} // namespace onudesk::bench
