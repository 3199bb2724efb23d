// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "env/xml_file.h"
#include "sim/models.h"
#include "sim/recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace onudesk::sim::test {

namespace {

constexpr const char* kEnterprise = "1.3.6.1.4.1.27315.";

template <typename T>
T require(Result<T> result) {
    if (!result) {
        throw std::runtime_error(result.error());
    }
    return std::move(result).value();
}

Recording recordingOf(const Lines& lines) {
    std::string text;
    for (const std::string& each : lines) {
        text += kEnterprise + each + "\n";
    }
    return require(parseRecording(text, "test"));
}

} // namespace

ObjectTable tableOf(const std::string& catalogue) {
    const XmlDocument document = require(parseXml(catalogue, "test"));
    return require(ObjectTable::build(require(readSchema(*document->RootElement())), isModel));
}

ObjectTable shippedTable() {
    return require(ObjectTable::build(
        require(loadSchema(ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml")), isModel));
}

Oid enterpriseOid(const std::string& rest) {
    return Oid::parseWhole(kEnterprise + rest).value();
}

Store storeOf(ObjectTable table, const Lines& lines) {
    return {std::move(table), recordingOf(lines).values};
}

std::string line(const std::string& oid, int value) {
    return oid + "|2|" + std::to_string(value);
}

std::string line(const std::string& group, int column, const std::string& instance, int value) {
    return line(group + "." + std::to_string(column) + "." + instance, value);
}

void expectHeld(const Store& store, const Lines& lines) {
    const Lines all = linesOf(store);
    for (const std::string& each : lines) {
        EXPECT_TRUE(std::ranges::find(all, each) != all.end()) << each;
    }
}

std::string held(const Store& store, const std::string& oid) {
    const Value* value = store.find(enterpriseOid(oid));
    return value == nullptr ? "" : recordedText(*value);
}

std::string valueOf(const Store& store, const std::string& oid) {
    const std::string text = held(store, oid);
    return text.substr(text.find('|') + 1);
}

Lines linesOf(const Store& store) {
    Lines lines;
    for (const auto& [oid, value] : store.values()) {
        lines.push_back(oid.tail(7).text() + "|" + recordedText(value));
    }
    return lines;
}

std::string set(Store& store, const Lines& bindings) {
    static const std::map<SetStatus, std::string> names = {
        {SetStatus::wrongType, "wrongType"},
        {SetStatus::wrongLength, "wrongLength"},
        {SetStatus::wrongValue, "wrongValue"},
        {SetStatus::noCreation, "noCreation"},
        {SetStatus::inconsistentValue, "inconsistentValue"},
        {SetStatus::notWritable, "notWritable"},
    };
    VarBinds request;
    for (const std::string& each : bindings) {
        const Values one = recordingOf({each}).values; // keeps the order of the bindings
        request.push_back({one.begin()->first, one.begin()->second});
    }
    const auto changes = store.prepare(request);
    if (!changes) {
        const SetFailure& failure = changes.failure();
        return names.at(failure.status) + " " + std::to_string(failure.index + 1);
    }
    store.apply(*changes);
    return "ok";
}

void carryOut(Store& store, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        const Values before = store.values();
        EXPECT_EQ(set(store, step.bindings), step.outcome) << step.bindings.back();
        EXPECT_TRUE(step.outcome == "ok" || store.values() == before) << step.bindings.back();
    }
}

void expectStates(const std::vector<ModelCase>& cases, const Lines& initial,
                  const std::function<std::string(const Store&)>& stateOf) {
    for (const ModelCase& each : cases) {
        SCOPED_TRACE(each.name);
        Store store = storeOf(shippedTable(), initial);
        carryOut(store, each.steps);
        EXPECT_EQ(stateOf(store), each.state);
    }
}

} // namespace onudesk::sim::test
