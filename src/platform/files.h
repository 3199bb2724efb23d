// SPDX-License-Identifier: MIT
//
// Names and places of modules, locales and client files.
#pragma once

#include "platform/api.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace onudesk::platform {

// Full path of the shared object (or program) that contains the address; empty when none does.
[[nodiscard]] ONUPLATFORM_API std::string moduleFileName(const void* address);

// Full path of the running program, or what setHostFileName() last gave.
[[nodiscard]] ONUPLATFORM_API std::string hostFileName();
// Overrides the program's place, for hosts that serve a client tree other than their own; the
// empty text ends the override.
ONUPLATFORM_API void setHostFileName(std::string path);

// Abbreviated language name of a Windows locale identifier, such as "ENU" for 1033 and "CHS" for
// 2052; empty when the locale is unknown.
[[nodiscard]] ONUPLATFORM_API std::string localeAbbreviation(std::uint32_t localeId);

// Compares regardless of the letter case of A to Z, whatever the locale.
[[nodiscard]] ONUPLATFORM_API bool sameIgnoringCase(std::string_view left, std::string_view right);

// Resolves a path as clients write them: "\" separates like "/", and a component that does not
// exist as written is looked up regardless of ASCII letter case. Relative paths start at the
// current directory. Nothing when a component does not exist.
[[nodiscard]] ONUPLATFORM_API std::optional<std::filesystem::path>
resolveClientPath(const std::string& clientPath);

} // namespace onudesk::platform
