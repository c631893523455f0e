// The fault sweep: an operation is run once undisturbed on a strict simulated host, then once for
// each way the host can fail it (each host call it made failed in turn, each object it was given
// withheld, no framework object, no dispatch, the application interface refused, each automation
// string allocation and each variant copy failed in turn where the runtime allows it). After every run the
// operation must have answered as its failure handling says, left the host as that handling allows, and left
// nothing behind.
#pragma once

#include "support/faults.h"

#include "sim/host.h"

#include "automation.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace module_testing {

// How an operation treats the automation failure.
enum class FailureHandling {
    caught,      // a failure shows only as the operation's failure value: nothing escapes
    propagated,  // the automation failure reaches the caller as _com_error with the failure's code
    swallowed,   // every exception is caught: the operation returns normally whatever happens
};

// What an operation does after a failure it caught.
enum class AfterFailure {
    stopsThere,  // nothing more: the host stays as it stood before the failing call
    goesOn,      // it goes on with its next step: the host may change only where the undisturbed run
                 // changed it
};

struct SweptOperation {
    std::string name;
    FailureHandling handling = FailureHandling::caught;
    AfterFailure afterFailure = AfterFailure::stopsThere;

    // Host methods (journal form) whose failure a helper of a `propagated` operation catches, so
    // that the operation may return normally after them (and after a failed string allocation or variant
    // copy).
    std::vector<std::string> caughtInside;

    // Host methods whose failure, or whose withheld object, the operation passes over (a position
    // the host refuses or leaves empty is skipped): it then answers and acts as the host stands
    // without that item, possibly on another one, which its own tests judge; the sweep checks only
    // that nothing was left behind and that no failure escaped but one a host call gave (the host's
    // refusal of that other item), never one of the operation's own making such as E_POINTER.
    std::vector<std::string> skippedWhenFailing;
    std::vector<std::string> skippedWhenWithheld;

    // Whether the operation keeps one reference on the host application by design (zoomWindow):
    // after a run that reached the application, that one reference is expected, and then let go.
    bool keepsApplicationReference = false;

    // The host each run starts from (called once per run, so nodes are never shared between runs).
    // The sweep makes it strict about argument types.
    std::function<sim::HostState()> initialState = [] { return sim::defaultHostState(); };

    // Calls the operation. It resets the outputs it keeps first, so that the checks below see what
    // this run did.
    std::function<void()> run;

    // The host calls of the undisturbed run, in order, where the test says which they must be:
    // "HostMenuGroups.Item" checks the method, "HostMenuGroups.Item(VT_I4)" also the variant types
    // its arguments crossed as.
    std::optional<std::vector<std::string>> hostCalls;

    // The run no fault reached: results, outputs, host state.
    std::function<void(const sim::Host&)> expectSuccess;

    // A run that a fault reached and that returned normally: the failure value and outputs left as
    // the operation must leave them. Operations whose failure handling is `propagated` come here
    // only for failures the host reports without a status (an SDK function's result code, an
    // object withheld that they do not go on to use) or that a helper catches; leave it empty for
    // an operation that must raise on every failure, or that has no result to check.
    std::function<void(const sim::Host&)> expectFailure;

    // What the operation puts back after a failure, applied to the host state it may leave: by
    // default exactly the state of the undisturbed run just before the call that failed, since
    // nothing is rolled back and nothing more is done. `initial` is the state the run started from.
    std::function<void(sim::HostState& allowed, const sim::HostState& initial)> restoredAfterFailure;
};

// Parameterised sweeps print the operation's name.
inline std::ostream& operator<<(std::ostream& out, const SweptOperation& operation)
{
    return out << operation.name;
}

// A test name made of the operation's name: "CADPlotUtilities::addPathes" -> "CADPlotUtilities_addPathes".
std::string sweptOperationName(const SweptOperation& operation);

struct SweepReport {
    std::size_t hostCalls = 0;      // calls of the undisturbed run
    std::size_t faultSites = 0;     // runs with a fault armed
    std::size_t faultsReached = 0;  // of those, runs the fault actually reached
};

// Runs the sweep, adding GoogleTest failures that name the fault.
SweepReport sweepFaults(const SweptOperation& operation);

// A parameterised test per operation: each subsystem's sweep file instantiates it with its own
// operations, INSTANTIATE_TEST_SUITE_P(Paths, FaultSweep, ValuesIn(operations), ...).
class FaultSweep : public ::testing::TestWithParam<SweptOperation> {};

}  // namespace module_testing
