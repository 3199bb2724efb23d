// SPDX-License-Identifier: MIT
//
// What SETs make of an agent, as the files in cases/ tell it:
//
//     catalogue rows.xml        beside them; the shipped one otherwise
//     objects 645 647           names are those of these modules' objects
//     short row a b c           row=1::3 stands for a=1 c=3, row=- for a=- b=- c=-
//     given [3] a=0 b=2         what the agent holds before each of the cases that follow; "demo"
//                               is the shipped recording
//     case NAME                 begins with what was given
//     ok: [3] a=1 / [4] b=2     SETs, and how each of them ends; "wrongType 2": at its 2nd binding
//     each 1 9 ok: [3] a=$      the same with every $ replaced by 1, then 2 and so on
//     now: [3-5] a=1 b=-        all that is not as it was at the last "now", or in the beginning
//     seen: [3] a=1             only some of it, and the rest is taken as it is
//
// [3] is instance 3 of ONU 1.2.5, (1.2.6.3) any instance; they hold for all that follows in the
// step. [3-5] stands for three of them. "-" is the value of what is not there, "~" a blank, 0xff
// are octets, and 66|1 is a value with a tag of its own. Lines that begin with a blank continue
// the one before. At its end nothing of a case may be untold.
#include "sim_fixture.h"

#include "base/file.h"
#include "base/numbers.h"
#include "base/text.h"
#include "sim/recording.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

namespace onudesk::sim::test {
namespace {

const std::filesystem::path kCases = ONUDESK_SOURCE_DIR "/tests/sim/cases";

constexpr const char* kDemo = ONUDESK_SOURCE_DIR "/client/demo/demo.snmprec";

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    std::istringstream all(text);
    for (std::string part; std::getline(all, part, at);) {
        if (at != ' ' || !part.empty()) {
            parts.push_back(part);
        }
    }
    return parts;
}

std::string replaced(std::string text, char each, const std::string& by) {
    for (auto at = text.find(each); at != std::string::npos; at = text.find(each)) {
        text.replace(at, 1, by);
    }
    return text;
}

std::string textOf(const Delta& delta) {
    std::string text;
    for (const auto& [oid, value] : delta) {
        text += oid.tail(7).text() + "=" + (value ? recordedText(*value) : "-") + "\n";
    }
    return text;
}

class CaseFile : public testing::TestWithParam<std::filesystem::path> {
protected:
    using Words = std::vector<std::string>;
    using Change = std::pair<Oid, std::optional<Value>>;

    void run(const std::string& step) {
        Words words = split(step, ' ');
        const std::string verb = words.front();
        words.erase(words.begin());
        if (verb == "catalogue") {
            catalogue_ = loadSchema(kCases / words.front()).value();
            table_ = tableOf(catalogue_);
        } else if (verb == "objects") {
            for (const std::string& item : words) {
                for (const GroupSchema& group : catalogue_.at(leadingInteger(item))) {
                    for (const ObjectSchema& object : group.objects) {
                        objects_.emplace(object.object.name, object.object);
                    }
                }
            }
        } else if (verb == "short") {
            shorts_[words.front()] = Words(words.begin() + 1, words.end());
        } else if (verb == "given" || verb == "case") {
            begin(verb, words);
        } else if (verb == "each") {
            const std::string what = step.substr(step.find(words[2], verb.size() + 4));
            for (int at = leadingInteger(words[0]); at <= leadingInteger(words[1]); ++at) {
                run(replaced(what, '$', std::to_string(at)));
            }
        } else if (verb == "now:") {
            expectChanges(words);
        } else if (verb == "seen:") {
            for (const auto& [oid, value] : changesOf(words)) {
                const Value* held = store_->find(oid);
                EXPECT_EQ(textOf({{oid, held ? std::optional(*held) : std::nullopt}}),
                          textOf({{oid, value}}));
            }
            told_ = store_->values();
        } else {
            setAll(step);
        }
    }
    // A case ends before the next one and at the end of the file.
    void begin(const std::string& verb, const Words& words) {
        expectChanges({});
        if (verb == "given") {
            const bool demo = words == Words{"demo"};
            given_ = demo ? loadRecording(kDemo).value().values : Values();
            for (const auto& [oid, value] : changesOf(given_.empty() ? words : Words())) {
                given_[oid] = value.value();
            }
        }
        store_.emplace(table_, given_);
        told_ = store_->values();
    }

private:
    // One word as what it stands for, at each of the instances.
    void take(const std::string& word, const std::vector<Oid>& instances,
              std::vector<Change>& changes) const {
        const auto equals = word.find('=');
        const std::string name = word.substr(0, equals);
        std::string value = replaced(word.substr(equals + 1), '~', " ");
        if (const auto known = shorts_.find(name); known != shorts_.end()) {
            const Words values =
                value == "-" ? Words(known->second.size(), "-") : split(value, ':');
            for (std::size_t at = 0; at < values.size(); ++at) {
                if (!values[at].empty()) {
                    take(known->second.at(at) + "=" + values[at], instances, changes);
                }
            }
            return;
        }
        const auto object = objects_.find(name);
        std::string tag = object == objects_.end() ? "" : std::to_string(object->second.type);
        if (const auto bar = value.find('|'); bar != std::string::npos) {
            tag = value.substr(0, bar);
            value.erase(0, bar + 1);
        } else if (value.starts_with("0x")) {
            tag += "x";
            value.erase(0, 2);
        }
        const auto content =
            value == "-" ? std::nullopt : std::optional(parseRecorded(tag, value).value());
        if (object == objects_.end()) {
            changes.emplace_back(enterpriseOid(name), content);
            return;
        }
        for (const Oid& instance : instances) {
            changes.emplace_back(Oid::parse(object->second.oidstr)->joined(instance), content);
        }
    }
    [[nodiscard]] std::vector<Change> changesOf(const Words& words,
                                                std::vector<Oid>* instances = nullptr) const {
        std::vector<Oid> own;
        std::vector<Oid>& at = instances == nullptr ? own : *instances;
        std::vector<Change> changes;
        for (const std::string& word : words) {
            if (word.front() == '[' || word.front() == '(') {
                at = instancesOf(word);
            } else {
                take(word, at, changes);
            }
        }
        return changes;
    }
    static std::vector<Oid> instancesOf(const std::string& word) {
        const Words ends = split(word.substr(1, word.size() - 2), '-');
        Oid first = ends.empty() ? Oid() : Oid::parse(ends.front()).value();
        if (word.front() == '[') {
            first = Oid{1, 2, 5}.joined(first);
        }
        std::vector<Oid> instances = {first};
        while (ends.size() > 1 && std::to_string(instances.back().last()) != ends.back()) {
            const Oid& last = instances.back();
            instances.push_back(last.head(last.size() - 1).joined({last.last() + 1}));
        }
        return instances;
    }

    void expectChanges(const Words& words) {
        if (!store_) {
            return;
        }
        Delta changes;
        for (const auto& [oid, value] : told_) {
            changes[oid] = std::nullopt;
        }
        for (const auto& [oid, value] : store_->values()) {
            changes[oid] = value;
        }
        std::erase_if(changes, [this](const auto& change) {
            const auto before = told_.find(change.first);
            return before != told_.end() && change.second == before->second;
        });
        const auto wanted = changesOf(words);
        EXPECT_EQ(textOf(changes), textOf(Delta(wanted.begin(), wanted.end())));
        told_ = store_->values();
    }
    void setAll(const std::string& step) {
        const auto colon = step.find(": ");
        std::vector<Oid> instances;
        for (const std::string& one : split(step.substr(colon + 2), '/')) {
            VarBinds bindings;
            for (const auto& [oid, value] : changesOf(split(one, ' '), &instances)) {
                bindings.push_back({oid, value.value()});
            }
            EXPECT_EQ(set(*store_, bindings), step.substr(0, colon)) << one;
        }
    }

    CatalogueSchema catalogue_ = shippedCatalogue();
    ObjectTable table_ = shippedTable();
    std::map<std::string, CONFIG_OID_T> objects_;
    std::map<std::string, Words> shorts_;
    Values given_;
    Values told_;
    std::optional<Store> store_;
};

TEST_P(CaseFile, IsAsItSays) {
    const std::string text = readFile(GetParam()).value() + "case end";
    std::string step;
    std::string name;
    for (const Line& line : lines(text)) {
        if (line.text.starts_with(' ')) {
            step += line.text;
        } else if (!line.text.empty() && !line.text.starts_with('#')) {
            if (!step.empty()) {
                SCOPED_TRACE(name + " before line " + std::to_string(line.number) + ": " + step);
                run(step);
            }
            name = step.starts_with("case ") ? step : name;
            step = line.text;
        }
    }
    begin(step, {});
}

std::vector<std::filesystem::path> caseFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(kCases)) {
        if (entry.path().extension() == ".txt") {
            files.push_back(entry.path());
        }
    }
    return files;
}
INSTANTIATE_TEST_SUITE_P(Store, CaseFile, testing::ValuesIn(caseFiles()),
                         [](const auto& each) { return each.param.stem().string(); });

} // namespace
} // namespace onudesk::sim::test
