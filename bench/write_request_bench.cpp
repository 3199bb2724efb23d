// SPDX-License-Identifier: MIT
//
// A write request of 20 bindings, built as pages do it and read back as the host does it.
#include "bridge/session.h"
#include "onudesk/messages.h"
#include "window/request.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kBindings = 20;

void buildAndReadBack(benchmark::State& state) {
    onudesk::Session session;
    session.context.agentAddress = "192.168.1.2";
    session.OnuIndexText = "1.2.5";
    const onudesk::CONFIG_OID_T object{"onuName", "1.3.6.1.4.1.27315.606.1.1.19", 4};
    for (auto _ : state) {
        const onudesk::CodeParaPtr request = onudesk::createWriteRequest(session, 606);
        for (int number = 0; number < kBindings; ++number) {
            onudesk::addWriteBinding(*request, "a name of usual length", object,
                                     session.OnuIndexText);
        }
        const onudesk::CodeParaReader reader(*request);
        auto oids = reader.byteStrings(onudesk::CP_OID_LIST);
        auto names = reader.byteStrings(onudesk::CP_NAME_LIST);
        auto values = reader.byteStrings(onudesk::CP_VALUE_LIST);
        auto types = reader.integers(onudesk::CP_TYPE_LIST);
        benchmark::DoNotOptimize(oids);
        benchmark::DoNotOptimize(names);
        benchmark::DoNotOptimize(values);
        benchmark::DoNotOptimize(types);
    }
}
BENCHMARK(buildAndReadBack)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
