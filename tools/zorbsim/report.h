// The report of a run, for people (text) or programs (JSON). Both end with the tally of steps.
#pragma once

#include "run_result.h"
#include "scenario.h"

#include <ostream>
#include <string>
#include <vector>

namespace zorbsim {

// `trace`: the host calls of each call step, under it.
void printTextReport(std::ostream& out, const Scenario& scenario, const RunResult& run, bool trace);
// `unwritten`: why each output file of the run was not written (the key "unwritten", when any).
void printJsonReport(std::ostream& out, const Scenario& scenario, const RunResult& run, bool trace,
                     const std::vector<std::string>& unwritten);

}  // namespace zorbsim
