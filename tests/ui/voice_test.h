// SPDX-License-Identifier: MIT
#pragma once

#include "page_test.h"

#include <string>
#include <utility>
#include <vector>

namespace onudesk::test {

// A page of the voice module that writes.
template <typename Page, std::int32_t Item>
class VoiceTest : public PageTest<Page, Item> {
protected:
    // What Config writes, be it usable or not.
    Texts written() {
        this->page().configBtn->setEnabled(true);
        click(*this->page().configBtn);
        return this->takeWrite();
    }
    Texts shownTexts(const Texts& controls) {
        Texts texts;
        for (const std::string& control : controls) {
            texts.push_back(this->text(control));
        }
        return texts;
    }
    // Texts that Config takes, in fields that it writes.
    void expectTaken(const std::vector<std::pair<const char*, Texts>>& fields) {
        const std::size_t bindings = written().size();
        for (const auto& [control, texts] : fields) {
            for (const std::string& text : texts) {
                this->setText(control, text);
                EXPECT_EQ(written().size(), bindings) << control << " " << text;
            }
        }
    }
    // Replies in which one value changes, and what the control makes of it each time.
    void expectShown(const Texts& values, std::size_t position, const char* control,
                     const std::vector<std::pair<const char*, std::string>>& codes) {
        for (const auto& [code, shown] : codes) {
            Texts changed = values;
            changed[position] = code;
            this->read(changed, "maintable");
            EXPECT_EQ(this->text(control), shown) << control << " " << code;
        }
    }
    void expectDelete(const std::string& binding) {
        click(*this->page().deleteBtn);
        EXPECT_EQ(this->takeWrite(), Texts{binding});
        EXPECT_TRUE(this->desk.takeBoxes().empty()) << "nothing is asked";
        EXPECT_FALSE(this->enabled("configBtn") || this->enabled("refreshBtn"));
        EXPECT_TRUE(this->enabled("deleteBtn"));
        this->expectWrittenAndRead();
    }
};

} // namespace onudesk::test
