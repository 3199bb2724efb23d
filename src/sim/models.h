// SPDX-License-Identifier: MIT
//
// Groups whose writes an ONU takes in ways of its own: the `model` attribute of the catalogue names
// one of these functions, which decides what the write changes.
#pragma once

#include "sim/device.h"

#include <optional>
#include <string_view>

namespace onudesk::sim {

// Carries one write out, or says why the ONU refuses it; then nothing of the SET is carried out.
using DeviceModel = SetResult (*)(const GroupWrite& write, Device& device);

[[nodiscard]] bool isModel(std::string_view name);
// Null when there is no model of that name.
[[nodiscard]] DeviceModel findModel(std::string_view name);

} // namespace onudesk::sim
