// Runs one operation of module_operations.h on a host, timing it and the host calls it makes.
#pragma once

#include "module_operations.h"

#include <benchmark/benchmark.h>

namespace module_bench {

// Installs `state` with the journal off, lets `prepare` finish the host (loading menus, say),
// arranges it for the operation and times it; the path operations are given `given` folders, the
// snap menu operations `given` entries. Counters: host_call_ns, the time spent inside host calls
// per iteration, and overhead_ratio, the time per iteration over that (absent for an operation
// that makes no host calls).
void timeOperation(benchmark::State& state, const Operation& operation, sim::HostState hostState,
                   const Targets& targets, int given, void (*prepare)(sim::Host&) = nullptr);

}  // namespace module_bench
