// SPDX-License-Identifier: MIT
#pragma once

#include "host/job.h"
#include "host/scalar_read.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::host {

// Writes all bindings in one SET. When the answer stays away, the values are read back: the agent
// may have carried the write out all the same, and must not do it twice.
class WriteJob : public Job {
public:
    WriteJob(const JobTools& tools, HostRequest request, ReplySink sink);
    void start() override;

private:
    struct Write {
        VarBind binding;
        const ObjectSchema* schema = nullptr; // null when the catalogue does not know the object
    };

    bool encode();
    void sendSet();
    void onResponse(const Response& response);
    void readBack();
    void onReadBack(const ScalarResult& result);
    [[nodiscard]] bool holds(const std::vector<Value>& values) const;
    void succeed();
    // `binding` counts from 1; 0 when the error concerns none in particular.
    void fail(std::int32_t status, std::size_t binding, const std::string& text);

    std::vector<Write> writes_;
    std::vector<std::size_t> readable_; // positions of the writes that can be read back
    std::int32_t sendsLeft_;
    std::string timeoutText_;
    std::optional<ScalarRead> check_;
};

} // namespace onudesk::host
