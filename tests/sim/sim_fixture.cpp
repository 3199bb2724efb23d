// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "env/xml_file.h"

#include <gtest/gtest.h>

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

Recording recordingOf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += kEnterprise + line + "\n";
    }
    return require(parseRecording(text, "test"));
}

} // namespace

ObjectTable tableOf(const std::string& catalogue) {
    const XmlDocument document = require(parseXml(catalogue, "test"));
    return require(ObjectTable::build(require(readSchema(*document->RootElement()))));
}

ObjectTable shippedTable() {
    return require(ObjectTable::build(
        require(loadSchema(ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml"))));
}

Oid enterpriseOid(const std::string& rest) {
    return Oid::parse(kEnterprise + rest).value();
}

Store storeOf(ObjectTable table, const std::vector<std::string>& lines) {
    return {std::move(table), recordingOf(lines).values};
}

std::vector<std::string> linesOf(const Store& store) {
    std::vector<std::string> lines;
    for (const auto& [oid, value] : store.values()) {
        lines.push_back(oid.tail(7).text() + "|" + formatValue(value));
    }
    return lines;
}

std::string set(Store& store, const std::vector<std::string>& bindings) {
    static const std::map<SetStatus, std::string> names = {
        {SetStatus::wrongType, "wrongType"},
        {SetStatus::wrongLength, "wrongLength"},
        {SetStatus::wrongValue, "wrongValue"},
        {SetStatus::noCreation, "noCreation"},
        {SetStatus::inconsistentValue, "inconsistentValue"},
        {SetStatus::notWritable, "notWritable"},
    };
    std::vector<Binding> request;
    for (const std::string& line : bindings) {
        const Values one = recordingOf({line}).values; // keeps the order of the bindings
        request.push_back({one.begin()->first, one.begin()->second});
    }
    auto outcome = store.prepare(request);
    if (const auto* failure = std::get_if<SetFailure>(&outcome)) {
        return names.at(failure->status) + " " + std::to_string(failure->index + 1);
    }
    store.apply(std::get<Changes>(outcome));
    return "ok";
}

void carryOut(Store& store, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        const Values before = store.values();
        EXPECT_EQ(set(store, step.bindings), step.outcome) << step.bindings.back();
        EXPECT_TRUE(step.outcome == "ok" || store.values() == before) << step.bindings.back();
    }
}

} // namespace onudesk::sim::test
