// SPDX-License-Identifier: MIT
//
// What ONUs do with the settings of their optical module.
#pragma once

#include "sim/device.h"

#include <optional>

namespace onudesk::sim {

// Module 667: thresholds can be written when their row is there, within the ranges of their
// quantities. The row status reads 0 before 4 makes the row, which starts with thresholds of the
// factory. Powers are written in dBm and kept in mW, in steps of 0.0001.
[[nodiscard]] SetResult writeOpticalThresholds(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
