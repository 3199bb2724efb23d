// SPDX-License-Identifier: MIT
#pragma once

#include "host/desk/inventory.h"

#include <string>

#include <QString>
#include <QStringList>

namespace onudesk::desk {

// Keeps the communities and pass phrases of a profile out of the trace. Immutable: any thread.
class SecretMask {
public:
    explicit SecretMask(const AccessProfile& profile);

    // A line of host::traceLine() in which every value that equals a secret, as text or in
    // hexadecimal digits, is replaced by "•••".
    [[nodiscard]] QString apply(const std::string& traceLine) const;

private:
    QStringList secrets_; // as texts and as digits
};

} // namespace onudesk::desk
