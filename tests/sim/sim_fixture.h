// SPDX-License-Identifier: MIT
//
// Short spellings for tests of the simulator.
#pragma once

#include "sim/store.h"

#include <string>

namespace onudesk::sim::test {

// The shipped catalogue file, and its table.
[[nodiscard]] CatalogueSchema shippedCatalogue();
[[nodiscard]] ObjectTable tableOf(const CatalogueSchema& catalogue);
[[nodiscard]] ObjectTable shippedTable();

// "900.1.1.7.4" stands for 1.3.6.1.4.1.27315.900.1.1.7.4.
[[nodiscard]] Oid enterpriseOid(const std::string& rest);

// Carries out one SET. "ok", or the failure and the number of its binding, as in "wrongType 2".
// Fails the test when a failure changes anything, or when a change cannot be taken back.
std::string set(Store& store, const VarBinds& bindings);

} // namespace onudesk::sim::test
