// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// How much multicast, broadcast and unknown unicast traffic the ONU lets through in each direction.
// One rate at a time is written.
[[nodiscard]] RecordPage onuRate();
// Which of the four queues serves each COS.
[[nodiscard]] TablePage onuCOSQueueScheduler();

} // namespace onudesk
