// SPDX-License-Identifier: MIT
//
// What pages do beyond their lines in pages.table: the cases of every file of tests/ui/cases.
#include "page_steps.h"

#include <algorithm>
#include <filesystem>

namespace onudesk::test {
namespace {

std::vector<PageCase> allCases() {
    std::vector<PageCase> all;
    for (const auto& entry :
         std::filesystem::directory_iterator(ONUDESK_SOURCE_DIR "/tests/ui/cases")) {
        const std::vector<PageCase> cases = loadCases("cases/" + entry.path().filename().string());
        all.insert(all.end(), cases.begin(), cases.end());
    }
    std::ranges::stable_sort(all, {}, &PageCase::name);
    return all;
}

class PageCases : public PageSteps, public testing::WithParamInterface<PageCase> {};

TEST_P(PageCases, DoAsTheySay) {
    open(GetParam().section);
    run(GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(Pages, PageCases, testing::ValuesIn(allCases()), [](const auto& instance) {
    return instance.param.name + "_" + std::to_string(instance.index);
});

} // namespace
} // namespace onudesk::test
