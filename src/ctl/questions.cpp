// SPDX-License-Identifier: MIT
#include "ctl/questions.h"

#include <QEventLoop>

#include <algorithm>
#include <utility>

namespace onudesk::ctl {

using platform::PromptAnswer;
using platform::PromptButtons;

Questions::Questions(Recorder& recorder) : recorder_(recorder) {
    recorder_.onQuestion = [this](const platform::Prompt& /*prompt*/) { return ask(); };
}

Questions::~Questions() {
    recorder_.onQuestion = {};
}

std::string Questions::text() const {
    return recorder_.boxes()[open_.back()->box].text;
}

bool Questions::answer(PromptAnswer answer) {
    if (open_.empty()) {
        return false;
    }
    Question& question = *open_.back();
    question.answer = answer;
    question.loop->quit();
    recorder_.take(question.box);
    acknowledged_ = recorder_.boxes().size();
    return true;
}

bool Questions::acknowledge() {
    const std::size_t from = std::exchange(acknowledged_, recorder_.boxes().size());
    return std::any_of(
        recorder_.boxes().begin() + static_cast<std::ptrdiff_t>(from), recorder_.boxes().end(),
        [](const platform::Prompt& box) { return box.buttons == PromptButtons::ok; });
}

PromptAnswer Questions::ask() {
    if (refusing_) {
        return PromptAnswer::no;
    }
    QEventLoop loop;
    Question question{recorder_.boxes().size() - 1, &loop, PromptAnswer::no};
    open_.push_back(&question);
    loop.exec();
    std::erase(open_, &question);
    return question.answer;
}

} // namespace onudesk::ctl
