// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"

#include <cstddef>

namespace onudesk {

// The error-status values of RFC 3416 a SET can meet.
enum class SetStatus {
    wrongType = 7,
    wrongLength = 8,
    wrongValue = 10,
    noCreation = 11,
    inconsistentValue = 12,
    notWritable = 17,
};

// Whether a part of a SET can be carried out.
using SetResult = Result<void, SetStatus>;

struct SetFailure {
    SetStatus status = SetStatus::notWritable;
    std::size_t index = 0; // of the binding, from 0
};

} // namespace onudesk
