// SPDX-License-Identifier: MIT
//
// How a page behaves where pages differ.
#pragma once

#include "env/message_ids.h"

#include <cstddef>
#include <string>

namespace onudesk {

// What a decoded reply, or one that could not be decoded, does to the configuration buttons.
enum class OnDecoded { enables, followsFlag };
enum class OnFailedDecode { enables, disables, leaves };
// waiting: request buttons disabled and Timer1 running; ready: everything usable.
enum class StartState { waiting, ready };

struct PageButton {
    const char* name = nullptr; // object name; null: the page has no such button
    int captionId = 0;
};

struct PageRules {
    int helpKeyId = 0;               // message whose text is the page's key in the help index
    std::string group = "maintable"; // of objects named without one
    // A page without Config only reads: write replies are nothing to it.
    PageButton config{"configBtn", message::config};
    PageButton refresh{"refreshBtn", message::refresh};
    StartState start = StartState::waiting;
    bool rereadsWhenShown = false;

    bool refreshEmpties = false; // the fields

    OnDecoded onDecoded = OnDecoded::enables;
    OnFailedDecode onFailedDecode = OnFailedDecode::enables;
    bool flagSetsRefresh = false;  // refreshBtn follows the completion flag, too
    std::string resultText{};      // only replies with it are shown; empty: with any
    std::size_t minimumValues = 0; // shorter replies are not shown
};

} // namespace onudesk
