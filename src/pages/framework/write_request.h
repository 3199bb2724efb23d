// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/session.h"
#include "pages/framework/fields.h"
#include "window/object_catalogue.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace onudesk {

// A write in the making. False when it could not be created; nothing is sent then.
//
//     WriteRequest request(session, catalogue, 608, "maingroup");
//     request.bind({"rowStatus", "rowstat"}, "4", session.OnuIndexText);
//     request.post();
//
// Session and catalogue outlive it.
class WriteRequest {
public:
    // `group` is that of objects named without one.
    WriteRequest(const Session& session, const ObjectCatalogue& catalogue, std::int32_t itemType,
                 std::string group);

    explicit operator bool() const { return para_ != nullptr; }
    // Adds a binding, unless the catalogue has no such object. `length` as in addWriteBinding.
    void bind(const ObjectName& object, const std::string& value, const std::string& suffix,
              std::size_t length = 0);
    // A request of its own with the same header and the bindings so far. False when it could not
    // be created.
    [[nodiscard]] WriteRequest copy() const;
    // The first of two writes whose second one is answered: marked with CP_FLAG_130.
    void markFirstOfTwo();
    // Hands the request over, unless it has no bindings. False when nothing was sent.
    bool post();

private:
    WriteRequest(const WriteRequest& other, CodeParaPtr para);

    const Session& session_;
    const ObjectCatalogue& catalogue_;
    std::string group_;
    CodeParaPtr para_;
};

} // namespace onudesk
