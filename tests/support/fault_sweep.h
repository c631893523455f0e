// The fault sweep: an operation is run once undisturbed on the simulated host, then once for each
// way the host can fail it (each host call it made failed in turn, each object it was given
// withheld, no framework object, no dispatch, the application interface refused, each automation
// string allocation failed in turn where the runtime allows it). After every run the operation
// must have answered as its failure handling says, and left nothing behind.
#pragma once

#include "support/faults.h"

#include "sim/host.h"

#include "automation.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace module_testing {

// How an operation treats the automation failure.
enum class FailureHandling {
    caught,      // a failure shows only as the operation's failure value: nothing escapes
    propagated,  // the automation failure reaches the caller as _com_error with the failure's code
};

struct SweptOperation {
    std::string name;
    FailureHandling handling = FailureHandling::caught;

    // The host each run starts from (called once per run, so nodes are never shared between runs).
    std::function<sim::HostState()> initialState = [] { return sim::defaultHostState(); };

    // Calls the operation. It resets the outputs it keeps in the test's own variables first, so
    // that the checks below see what this run did.
    std::function<void()> run;

    // The host calls of the undisturbed run, in order, where the test says which they must be.
    std::optional<std::vector<std::string>> hostCalls;

    // The run no fault reached: results, outputs, host state.
    std::function<void(const sim::Host&)> expectSuccess;

    // A run that a fault reached and that returned normally: the failure value, outputs left as the
    // operation must leave them, the host unchanged where it must be. Operations whose failure
    // handling is `propagated` come here only for failures the host reports without a status
    // (an SDK function's result code, an object withheld that they do not go on to use); leave it
    // empty for an operation that must raise on every failure.
    std::function<void(const sim::Host&)> expectFailure;
};

struct SweepReport {
    std::size_t hostCalls = 0;     // calls of the undisturbed run
    std::size_t faultSites = 0;    // runs with a fault armed
    std::size_t faultsReached = 0; // of those, runs the fault actually reached
};

// Runs the sweep, adding GoogleTest failures that name the operation and the fault.
SweepReport sweepFaults(const SweptOperation& operation);

}  // namespace module_testing
