// SPDX-License-Identifier: MIT
#pragma once

namespace onudesk::host {

// Makes Net-SNMP ready once per process: SNMPv3 with USM, no configuration files, no MIBs, nothing
// stored, nothing logged. Only one thread at a time may use the library afterwards.
void initSnmpLibrary();

} // namespace onudesk::host
