// SPDX-License-Identifier: MIT
#include "sim/store.h"

#include "sim/models.h"

namespace onudesk::sim {

Result<Changes, SetFailure> Store::prepare(const VarBinds& bindings) const {
    const auto runModel = [this](const GroupWrite& write, Delta& changes) {
        Device device(*this, changes);
        return findModel(write.model())(write, device);
    };
    return prepareSet(*this, bindings, runModel);
}

} // namespace onudesk::sim
