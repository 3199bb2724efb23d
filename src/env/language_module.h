// SPDX-License-Identifier: MIT
//
// Numbered texts of one language, from an XML file such as libonuconfig.ENU:
//
//     <language><text id="11068">Enter a value from %s to %s.</text></language>
#pragma once

#include "base/result.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace onudesk {

class LanguageModule {
public:
    [[nodiscard]] static Result<LanguageModule> load(const std::filesystem::path& path);

    // UTF-8; empty when the module has no such text.
    [[nodiscard]] const std::string& text(int id) const;
    [[nodiscard]] const std::map<int, std::string>& texts() const { return texts_; }

private:
    std::map<int, std::string> texts_;
};

// Fills the printf-style places of a text ("%s", "%d", "%u", "%%") with the arguments in their
// order; places without an argument become empty. The text is never used as a C format string.
[[nodiscard]] std::string fillPlaces(const std::string& format,
                                     const std::vector<std::string>& arguments);

// The module that all windows of this library read, empty until one is installed.
[[nodiscard]] const LanguageModule& currentLanguage();
void installLanguage(LanguageModule module);
// Text of a message in the current module, empty when there is none.
[[nodiscard]] const std::string& messageText(int id);

// Loads the module for a Windows locale identifier from beside `libraryFile`: everything after the
// last "." of its file name becomes the locale's abbreviation ("ENU"), or else the first two
// letters of it ("EN"). False, with nothing changed, when the file name has no extension, the
// locale has no name or neither file loads.
bool LoadNewResourceModule(const std::string& libraryFile, std::uint32_t localeId);

} // namespace onudesk
