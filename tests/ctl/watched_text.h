// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <utility>

namespace onudesk::ctl {

// What a script tells; does something, once, as soon as a line with the text was written.
class WatchedText : public std::stringbuf {
public:
    std::string text;
    std::function<void()> act;

protected:
    int sync() override {
        if (act && str().find(text) != std::string::npos) {
            std::exchange(act, {})();
        }
        return std::stringbuf::sync();
    }
};

} // namespace onudesk::ctl
