// SPDX-License-Identifier: MIT
//
// The names under which programs and tests find the parts of the window. Controls of pages have the
// names that docs/pages.md tells; these are the ones that are the same everywhere.
#pragma once

namespace onudesk::window_names {

// Object names, ASCII.
inline constexpr const char* kMainForm = "TConfigMainForm";
inline constexpr const char* kItemTree = "ConfigItemTree"; // of the main form; its root is no item
inline constexpr const char* kPageArea = "Panel1";         // of the main form; pages lie in it
inline constexpr const char* kPagePrefix = "TOnu";         // of pages, and of nothing else
// Of pages, and of dialogs that read: blocks buttons while it runs.
inline constexpr const char* kButtonTimer = "Timer1";

// Data of a node of the item tree in column 0: its item type as int. Equals Qt::UserRole.
inline constexpr int kItemTypeRole = 0x0100;

} // namespace onudesk::window_names
