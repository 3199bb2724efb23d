// SPDX-License-Identifier: MIT
#include "pages/framework/write_request.h"

#include "window/request.h"

#include <utility>

namespace onudesk {

WriteRequest::WriteRequest(const Session& session, const ObjectCatalogue& catalogue,
                           std::int32_t itemType, std::string group)
    : session_(session), catalogue_(catalogue), group_(std::move(group)),
      para_(createWriteRequest(session, itemType)) {}

WriteRequest::WriteRequest(const WriteRequest& other, CodeParaPtr para)
    : session_(other.session_), catalogue_(other.catalogue_), group_(other.group_),
      para_(std::move(para)) {}

WriteRequest WriteRequest::copy() const {
    return {*this, para_ == nullptr ? nullptr : copyCodePara(*para_)};
}

void WriteRequest::bind(const ObjectName& object, const std::string& value,
                        const std::string& suffix, std::size_t length) {
    const std::string& group = object.group.empty() ? group_ : object.group;
    if (const CONFIG_OID_T* found = lookup(catalogue_, group, object.name)) {
        addWriteBinding(*para_, value, *found, suffix, length);
    }
}

void WriteRequest::markFirstOfTwo() {
    setInteger(*para_, CP_FLAG_130, 0);
}

bool WriteRequest::post() {
    return postWrite(session_, std::move(para_));
}

} // namespace onudesk
