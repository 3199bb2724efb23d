// SPDX-License-Identifier: MIT
#include "platform/prompter.h"

#include <utility>

namespace onudesk::platform {

namespace {
Prompter* g_prompter = nullptr;
}

Prompter* installPrompter(Prompter* prompter) {
    return std::exchange(g_prompter, prompter);
}

Prompter* installedPrompter() {
    return g_prompter;
}

PromptAnswer prompt(const Prompt& prompt) {
    if (g_prompter != nullptr) {
        return g_prompter->ask(prompt);
    }
    return prompt.buttons == PromptButtons::yesNo ? PromptAnswer::no : PromptAnswer::ok;
}

} // namespace onudesk::platform
