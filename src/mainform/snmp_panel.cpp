// SPDX-License-Identifier: MIT
#include "mainform/snmp_panel.h"

#include "pages/framework/controls.h"

#include <map>

#include <QFormLayout>

namespace onudesk {

namespace {

std::string versionText(std::int32_t code) {
    static const std::map<std::int32_t, std::string> names = {
        {0, "version1"}, {1, "version2c"}, {3, "version3"}};
    const auto found = names.find(code);
    return found == names.end() ? std::string() : found->second;
}

QLineEdit* addEdit(QFormLayout& form, QWidget* parent, const char* name, const char* label) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setReadOnly(true);
    edit->setAccessibleName(QString::fromLatin1(label));
    form.addRow(QString::fromLatin1(label), edit);
    return edit;
}

} // namespace

SnmpPanel::SnmpPanel(QWidget* parent) : QGroupBox(QStringLiteral("SNMP"), parent) {
    setObjectName(QStringLiteral("snmpGroup"));
    resize(kWidth, kHeight);
    auto* form = new QFormLayout(this);
    edtSnmpVersion = addEdit(*form, this, "edtSnmpVersion", "Version");
    edtSnmpPort = addEdit(*form, this, "edtSnmpPort", "Port");
    edtSnmpTimeout = addEdit(*form, this, "edtSnmpTimeout", "Timeout");
    edtRetries = addEdit(*form, this, "edtRetries", "Retries");
}

void SnmpPanel::load(const SessionContext& context) {
    setControlText(*edtSnmpVersion, versionText(context.snmpVersion));
    setControlText(*edtSnmpPort, std::to_string(context.snmpPort));
    setControlText(*edtSnmpTimeout, std::to_string(context.timeout));
    setControlText(*edtRetries, std::to_string(context.retries));
}

} // namespace onudesk
