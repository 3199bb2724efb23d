// SPDX-License-Identifier: MIT
//
// The scripts of single pages, and what the agent holds before and after each.
#include "script_session.h"

#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::test {
namespace {

constexpr const char* kNone = "No Such Instance currently exists at this OID";

using Texts = std::vector<std::string>;

// The lines of scripts.table with one name, in fields.
struct PageScripts {
    std::string name;
    std::string version;
    std::vector<Texts> lines;
};

// How the test's name calls it.
void PrintTo(const PageScripts& page, std::ostream* out) {
    *out << page.name;
}

Texts split(const std::string& text, char separator) {
    Texts parts;
    std::istringstream all(text);
    for (std::string part; std::getline(all, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

std::string valueOf(const std::string& field) {
    if (field == "none") {
        return kNone;
    }
    const std::size_t end = field.find("\\n");
    return end == std::string::npos ? field : field.substr(0, end) + '\n' + field.substr(end + 2);
}

// All over SNMPv2c, four over the other versions, too.
std::vector<PageScripts> allScripts() {
    std::ifstream table(E2E_SCRIPT_DIR "/scripts.table");
    std::vector<PageScripts> all;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with("//")) {
            continue;
        }
        const Texts fields = split(line, '|');
        if (all.empty() || all.back().name != fields[0]) {
            all.push_back({fields[0], "2c", {}});
        }
        all.back().lines.push_back(fields);
    }
    for (std::size_t at = 0, count = all.size(); at < count; ++at) {
        for (const char* name : {"basicMac", "portVlan", "classification", "macFilter"}) {
            if (all[at].name == name) {
                all.push_back({name, "1", all[at].lines});
                all.push_back({name, "3", all[at].lines});
            }
        }
    }
    return all;
}

class PageScriptsTest : public testing::TestWithParam<PageScripts> {};

TEST_P(PageScriptsTest, LeaveOnTheAgentWhatTheOperatorAskedFor) {
    const ScriptSession session;
    for (const Texts& fields : GetParam().lines) {
        SCOPED_TRACE(fields[1]);
        const auto expectValues = [&](std::size_t field) {
            for (std::size_t at = 4; at + 2 < fields.size(); at += 3) {
                EXPECT_EQ(session.get("1.3.6.1.4.1.27315." + fields[at]),
                          valueOf(fields[at + field]))
                    << fields[at];
            }
        };
        const std::string options = fields.size() > 3 ? fields[3] : std::string();
        const bool fails = options.starts_with("exit=");
        expectValues(1);
        const Finished onuctl = session.run(fields[1] + ".onu", fields[2], GetParam().version,
                                            fails ? Texts() : split(options, ' '));
        EXPECT_EQ(onuctl.status, fails ? std::stoi(options.substr(5)) : 0)
            << onuctl.err << onuctl.out;
        expectValues(2);
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, PageScriptsTest, testing::ValuesIn(allScripts()),
                         [](const auto& instance) {
                             return instance.param.name + "_v" + instance.param.version;
                         });

} // namespace
} // namespace onudesk::test
