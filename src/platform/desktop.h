// SPDX-License-Identifier: MIT
//
// Help, commands and pauses: what the window asks of the desktop it runs on.
#pragma once

#include "platform/api.h"

#include <chrono>
#include <string>

class QApplication;

namespace onudesk::platform {

// Shows help topics and passes time. Whoever owns the screen (or a test) installs one.
class ONUPLATFORM_API Desktop {
public:
    virtual ~Desktop() = default;
    // `book` is the path of a help book as the client names it (…\Help\name.chm), `topic` a page
    // name inside it. Must not block.
    virtual void showHelp(const std::string& book, const std::string& topic) = 0;
    // Called with every command line before it is carried out.
    virtual void noteCommand(const std::string& line) = 0;
    // Blocks the calling thread.
    virtual void pause(std::chrono::milliseconds time);
};

// Installs the desktop of this process (not owned; null removes it) and returns the one before.
ONUPLATFORM_API Desktop* installDesktop(Desktop* desktop);
[[nodiscard]] ONUPLATFORM_API Desktop* installedDesktop();

// Shows a topic; without a desktop nothing happens.
ONUPLATFORM_API void openHelp(const std::string& book, const std::string& topic);

// Carries out a command line of the form "hh mk:@MSITStore:BOOK::/TOPIC". No other command is
// known; nothing ever reaches a shell. False when the line is not understood.
ONUPLATFORM_API bool runCommand(const std::string& line);

// Writes a line for whoever looks after the program to standard error.
ONUPLATFORM_API void noteProblem(const std::string& text);

// Blocks the calling thread.
ONUPLATFORM_API void pause(std::chrono::milliseconds time);

// The application object that windows belong to. The plug-in replaces its own by the host's.
ONUPLATFORM_API QApplication* currentApplication();
ONUPLATFORM_API void setCurrentApplication(QApplication* application);

} // namespace onudesk::platform
