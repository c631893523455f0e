#include "timed_session.h"

#include <chrono>

namespace module_bench {

void timeOperation(benchmark::State& state, const Operation& operation, sim::HostState hostState,
                   const Targets& targets, int given, void (*prepare)(sim::Host&))
{
    sim::Host host(std::move(hostState));
    host.journal().setEnabled(false);
    host.syncEnvironment();
    if (prepare != nullptr)
        prepare(host);
    Session session(host, targets, given);
    if (operation.arrange != nullptr)
        operation.arrange(session);

    host.startTimingHostCalls();
    const auto started = std::chrono::steady_clock::now();
    for (auto _ : state)
        operation.run(session);
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - started;

    const double hostCallNs = static_cast<double>(host.hostCallTime().count());
    state.counters["host_call_ns"] = benchmark::Counter(hostCallNs, benchmark::Counter::kAvgIterations);
    if (hostCallNs > 0)
        state.counters["overhead_ratio"] = elapsed.count() / hostCallNs;
}

}  // namespace module_bench
