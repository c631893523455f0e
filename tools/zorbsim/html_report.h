// The page of a run (--html): the host before the first step and after the last, and each step
// with its call, result and expectations, its host calls folded, and the host after it with what
// the step changed marked.
#pragma once

#include "run_result.h"
#include "scenario.h"

#include <ostream>

namespace zorbsim::html {

// `run` must have kept its host states (HostStates::kept).
void writeRunReport(std::ostream& out, const Scenario& scenario, const RunResult& run);

}  // namespace zorbsim::html
