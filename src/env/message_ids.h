// SPDX-License-Identifier: MIT
//
// Numbers of the texts that more than one part of the window shows. Texts of a single page are
// numbered where they are used.
#pragma once

namespace onudesk::message {

inline constexpr int errorCaption = 113;
inline constexpr int allZeroMac = 3029;
inline constexpr int nothingToDelete = 3034;
inline constexpr int badMac = 3036;
inline constexpr int unsupported = 3185;
inline constexpr int importRemark = 3262;
inline constexpr int helpFile = 6201;
inline constexpr int noticeCaption = 11001;
inline constexpr int subject = 11002; // of the window and of its notices
inline constexpr int itemTitle = 11006;
inline constexpr int on = 11007;
inline constexpr int off = 11008;
inline constexpr int yes = 11043;
inline constexpr int no = 11044;
inline constexpr int succeeded = 11045; // before the subject
inline constexpr int failed = 11046;    // likewise
inline constexpr int refusalCaption = 11054;
inline constexpr int deleteQuestion = 11057;
inline constexpr int deleteCaption = 11058; // before what goes
inline constexpr int outOfRange = 11068;    // with the bounds
inline constexpr int badDottedQuad = 11069;
inline constexpr int catalogueUnusable = 11140;
inline constexpr int noRowSelected = 11204;

inline constexpr int config = 20001; // captions of buttons
inline constexpr int refresh = 20002;
inline constexpr int help = 20003;
inline constexpr int remove = 20004;
inline constexpr int ok = 20005;
inline constexpr int okay = 20034; // as item dialogs write it
inline constexpr int cancel = 20006;
inline constexpr int add = 20032;
inline constexpr int notANumber = 20029; // with the text
inline constexpr int portNumber = 20040; // caption of lists and boxes of ports

} // namespace onudesk::message
