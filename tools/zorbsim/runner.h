// Plays a scenario's steps on a simulated host built from its state.
#pragma once

#include "run_result.h"
#include "scenario.h"

#include "sim/model.h"

#include <vector>

namespace zorbsim {

// What a run keeps of each call besides its outcome.
enum class HostCalls {
    dropped,           // none: a long run's memory then grows only with what the report shows
    kept,              // every host call, for the trace
    keptWithReleases,  // and each release of a host object, in order with them
};

// Whether a run keeps the host state before its first step and after each step.
enum class HostStates {
    dropped,  // none: only the final state, as JSON
    kept,     // for a report that shows what each step changed
};

// Installs a host with `host` for the run and removes it afterwards. Failures that escape a call
// are part of the result, never thrown.
RunResult runScenario(sim::HostState host, const std::vector<Step>& steps, HostCalls hostCalls,
                      HostStates hostStates = HostStates::dropped);

}  // namespace zorbsim
