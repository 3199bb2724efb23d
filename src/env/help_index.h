// SPDX-License-Identifier: MIT
//
// The client's help book and the index of its topics.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace onudesk {

// clientRoot() + "\Help\" + name, as texts and command lines show it.
[[nodiscard]] std::string helpFileName(const std::string& name);

// Key text to topic ("DBA" to "onuDba.htm").
using HelpIndex = std::map<std::string, std::string>;

// Reads `path` into the index. Lines are "anything=topic<TAB>… key": the topic ends at the first
// tab after the "=", the key is what follows the first blank after the "=". Lines are cut at 1023
// bytes, a carriage return at their end is dropped, lines without all three marks are skipped. A
// key that is already there keeps its topic and is told to `onDuplicate`. A file that cannot be
// read changes nothing.
void loadHelpIndex(HelpIndex& index, const std::filesystem::path& path,
                   const std::function<void(const std::string& key)>& onDuplicate);

// The index of this process, filled by loadHelpIndexOnce().
[[nodiscard]] const HelpIndex& currentHelpIndex();
// Loads client root + "\Help\" + name + ".txt" unless the index holds something already; duplicate
// keys are shown to the operator.
void loadHelpIndexOnce(const std::string& name);
// Empties the index, as a fresh load of the library finds it.
void clearHelpIndex();

// Opens client root + "\Help\" + name + ".chm" at the topic of the key. An unknown key opens
// nothing.
void openPageHelp(const std::string& key, const HelpIndex& index, const std::string& name);

} // namespace onudesk
