// SPDX-License-Identifier: MIT
//
// The one way in which the window asks or tells the operator something.
#pragma once

#include "platform/api.h"

#include <cstdint>
#include <string>

namespace onudesk::platform {

enum class PromptIcon { none, information, warning };
enum class PromptButtons { ok, yesNo };
enum class PromptAnswer { ok, yes, no };

// Texts are UTF-8 and shown as they stand, never as markup. `owner` is the handle of the window
// the box belongs to, 0 for none.
struct Prompt {
    std::string text{};
    std::string caption{};
    PromptIcon icon = PromptIcon::none;
    PromptButtons buttons = PromptButtons::ok;
    std::uint32_t owner = 0;
};

class ONUPLATFORM_API Prompter {
public:
    virtual ~Prompter() = default;
    // Modal: returns after the operator answered. Window messages go on being delivered meanwhile.
    virtual PromptAnswer ask(const Prompt& prompt) = 0;
};

// Installs the prompter of this process (not owned; null removes it) and returns the one before.
ONUPLATFORM_API Prompter* installPrompter(Prompter* prompter);
[[nodiscard]] ONUPLATFORM_API Prompter* installedPrompter();

// Asks through the installed prompter. Without one, yes/no questions are answered no.
ONUPLATFORM_API PromptAnswer prompt(const Prompt& prompt);

} // namespace onudesk::platform
