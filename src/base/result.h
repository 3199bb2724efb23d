// SPDX-License-Identifier: MIT
//
// A value or the reason why there is none; Result<void> where there is nothing to give but the
// reason.
//
//     Result<Config> config = loadConfig(path);
//     if (!config) { report(config.error()); }
//     if (const Result<void> saved = save(*config); !saved) { report(saved.error()); }
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace onudesk {

// What went wrong, in words an operator understands, with file and line where there are any.
struct Error {
    std::string text;
};

// `Failure` has a member `text`, and may say more than Error does.
template <typename T, typename Failure = Error>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : state_(std::in_place_index<1>, std::move(failure)) {}

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
    [[nodiscard]] const Failure& failure() const { return *std::get_if<1>(&state_); }
    [[nodiscard]] const std::string& error() const { return failure().text; }

private:
    std::variant<T, Failure> state_;
};

template <typename Failure>
class [[nodiscard]] Result<void, Failure> {
public:
    Result() = default;
    Result(Failure failure) : failure_(std::move(failure)) {}

    [[nodiscard]] bool ok() const { return !failure_; }
    explicit operator bool() const { return ok(); }

    // Only when not ok().
    [[nodiscard]] const Failure& failure() const { return *failure_; }
    [[nodiscard]] const std::string& error() const { return failure_->text; }

private:
    std::optional<Failure> failure_;
};

} // namespace onudesk
