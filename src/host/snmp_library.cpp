// SPDX-License-Identifier: MIT
#include "host/snmp_library.h"

#include <mutex>

#include <net-snmp/net-snmp-config.h>
#include <net-snmp/net-snmp-includes.h>

namespace onudesk::host {

namespace {

constexpr const char* kApplication = "onudesk";

// init_snmp() would also load MIBs, change the locale and make a directory for certificates, so the
// parts that a manager needs are started one by one.
void initOnce() {
    netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
    netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_DONT_READ_CONFIGS, 1);
    netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_DONT_PERSIST_STATE, 1);
    netsnmp_ds_set_string(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_APPTYPE, kApplication);
    netsnmp_session scratch;
    snmp_sess_init(&scratch);
    netsnmp_container_init_list();
    init_snmp_enum(kApplication);
    init_snmpv3(kApplication);
    // What usually follows the reading of the configuration files: the USM tables are made here.
    snmp_call_callbacks(SNMP_CALLBACK_LIBRARY, SNMP_CALLBACK_POST_PREMIB_READ_CONFIG, nullptr);
    snmp_call_callbacks(SNMP_CALLBACK_LIBRARY, SNMP_CALLBACK_POST_READ_CONFIG, nullptr);
}

} // namespace

void initSnmpLibrary() {
    static std::once_flag once;
    std::call_once(once, initOnce);
}

} // namespace onudesk::host
