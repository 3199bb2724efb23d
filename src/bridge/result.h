// SPDX-License-Identifier: MIT
//
// A value or the reason why there is none.
//
//     Result<Config> config = loadConfig(path);
//     if (!config) { report(config.error()); }
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace onudesk {

// What went wrong, in words an operator understands, with file and line where there are any.
struct Error {
    std::string text;
};

template <typename T>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool ok() const { return state_.index() == 0; }
    explicit operator bool() const { return ok(); }

    // Only when ok().
    [[nodiscard]] T& value() & { return *std::get_if<0>(&state_); }
    [[nodiscard]] const T& value() const& { return *std::get_if<0>(&state_); }
    [[nodiscard]] T&& value() && { return std::move(*std::get_if<0>(&state_)); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }
    T& operator*() & { return value(); }
    const T& operator*() const& { return value(); }

    // Only when not ok().
    [[nodiscard]] const std::string& error() const { return std::get_if<1>(&state_)->text; }

private:
    std::variant<T, Error> state_;
};

} // namespace onudesk
