// SPDX-License-Identifier: MIT
//
// A small catalogue and short spellings for tests of the simulator.
#pragma once

#include "sim/store.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace onudesk::sim::test {

// Table "rows" (columns 1.3.6.1.4.1.27315.900.1.1.N) with a row status, and group "unit" (columns
// 1.3.6.1.4.1.27315.900.2.1.N) with one instance per ONU.
inline constexpr const char* kCatalogue = R"(
<snmpconfig>
 <module name="900">
  <group name="rows" read="table">
   <object name="label" oidstr="1.3.6.1.4.1.27315.900.1.1.1" type="4" access="read-create"
           size="0..8" row="rowStatus"/>
   <object name="level" oidstr="1.3.6.1.4.1.27315.900.1.1.2" type="2" access="read-create"
           range="5..10" row="rowStatus"/>
   <object name="key" oidstr="1.3.6.1.4.1.27315.900.1.1.3" type="66" access="read-create"
           range="1..100" row="rowStatus" unique="yes"/>
   <object name="seen" oidstr="1.3.6.1.4.1.27315.900.1.1.4" type="65" access="read-only"
           row="rowStatus"/>
   <object name="peer" oidstr="1.3.6.1.4.1.27315.900.1.1.5" type="64" access="read-create"
           row="rowStatus"/>
   <object name="secret" oidstr="1.3.6.1.4.1.27315.900.1.1.6" type="4" access="write-only"
           size="0..8" row="rowStatus"/>
   <object name="rowStatus" oidstr="1.3.6.1.4.1.27315.900.1.1.7" type="2" access="read-create"
           range="1..6" row="rowStatus"/>
  </group>
  <group name="unit" read="scalar">
   <object name="mode" oidstr="1.3.6.1.4.1.27315.900.2.1.1" type="2" access="read-write"
           range="0..3"/>
   <object name="serial" oidstr="1.3.6.1.4.1.27315.900.2.1.2" type="4" access="read-only"
           size="4"/>
   <object name="note" oidstr="1.3.6.1.4.1.27315.900.2.1.3" type="4" access="read-create"
           size="0..8"/>
   <object name="reset" oidstr="1.3.6.1.4.1.27315.900.2.1.4" type="2" access="write-only"
           range="1..1"/>
   <object name="free" oidstr="1.3.6.1.4.1.27315.900.2.1.5" access="read-write"/>
  </group>
 </module>
</snmpconfig>)";

using Lines = std::vector<std::string>;

// Builds the table of a catalogue given as text; fails the test when it is not right.
[[nodiscard]] ObjectTable tableOf(const std::string& catalogue);
// The table of the shipped catalogue file.
[[nodiscard]] ObjectTable shippedTable();

// "900.1.1.7.4" stands for 1.3.6.1.4.1.27315.900.1.1.7.4.
[[nodiscard]] Oid enterpriseOid(const std::string& rest);

// A store with lines like "900.1.1.7.4|2|1".
[[nodiscard]] Store storeOf(ObjectTable table, const Lines& lines);
// Such a line of an integer, and of one below a column that has others beside it.
[[nodiscard]] std::string line(const std::string& oid, int value);
[[nodiscard]] std::string line(const std::string& group, int column, const std::string& instance,
                               int value);

// What the store holds, in the form of those lines.
[[nodiscard]] Lines linesOf(const Store& store);
void expectHeld(const Store& store, const Lines& lines);
// One value as in "2|1", and without its tag; empty when there is none.
[[nodiscard]] std::string held(const Store& store, const std::string& oid);
[[nodiscard]] std::string valueOf(const Store& store, const std::string& oid);

// Carries out one SET with bindings like "900.1.1.7.4|2|1". "ok", or the failure and the number of
// its binding, as in "wrongType 2".
std::string set(Store& store, const Lines& bindings);

struct Step {
    Lines bindings;
    std::string outcome;
};

// Carries out one SET after the other and expects their outcomes; one that fails must change
// nothing.
void carryOut(Store& store, const std::vector<Step>& steps);

struct ModelCase {
    const char* name;
    std::vector<Step> steps;
    std::string state; // in the end
};
// Carries out the steps of each case on a store of the shipped table.
void expectStates(const std::vector<ModelCase>& cases, const Lines& initial,
                  const std::function<std::string(const Store&)>& stateOf);

} // namespace onudesk::sim::test
