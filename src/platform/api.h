// SPDX-License-Identifier: MIT
#pragma once

// Marks what libonuplatform.so exports.
#define ONUPLATFORM_API __attribute__((visibility("default")))
