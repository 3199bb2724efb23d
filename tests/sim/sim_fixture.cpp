// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "sim/models.h"

#include <gtest/gtest.h>

#include <map>

namespace onudesk::sim::test {

CatalogueSchema shippedCatalogue() {
    return loadSchema(ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml").value();
}

ObjectTable tableOf(const CatalogueSchema& catalogue) {
    return ObjectTable::build(catalogue, isModel).value();
}

ObjectTable shippedTable() {
    return tableOf(shippedCatalogue());
}

Oid enterpriseOid(const std::string& rest) {
    return Oid::parseWhole("1.3.6.1.4.1.27315." + rest).value();
}

std::string set(Store& store, const VarBinds& bindings) {
    static const std::map<SetStatus, std::string> names = {
        {SetStatus::wrongType, "wrongType"},
        {SetStatus::wrongLength, "wrongLength"},
        {SetStatus::wrongValue, "wrongValue"},
        {SetStatus::noCreation, "noCreation"},
        {SetStatus::inconsistentValue, "inconsistentValue"},
        {SetStatus::notWritable, "notWritable"},
    };
    const auto state = [&] { return std::pair(store.values(), store.staged()); };
    const auto before = state();
    const auto changes = store.prepare(bindings);
    if (changes) {
        store.apply(store.apply(*changes));
    }
    EXPECT_TRUE(state() == before);
    if (!changes) {
        const SetFailure& failure = changes.failure();
        return names.at(failure.status) + " " + std::to_string(failure.index + 1);
    }
    store.apply(*changes);
    return "ok";
}

} // namespace onudesk::sim::test
