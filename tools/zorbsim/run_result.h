// What running a scenario gave: per step the call's outcome or failure, the host calls it made,
// what the core library recorded during it, and how each expectation came out; and the host state
// at the end, with the states in between when they were asked for.
#pragma once

#include "automation_failure.h"
#include "core_library_watch.h"
#include "operation.h"
#include "scenario.h"

#include "sim/journal.h"
#include "sim/model.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorbsim {

enum class ExpectationKind {
    value,      // a result, an output or a host state path held its value
    throws,     // the expected automation failure came
    noFailure,  // no automation failure was expected, so none may come
};

struct ExpectationResult {
    ExpectationKind kind = ExpectationKind::value;
    std::string subject;                   // "result", "path", "throws", "/preferences/supportPath" ...
    nlohmann::json expected;               // throws, noFailure: status texts
    std::optional<nlohmann::json> actual;  // none: the call gave no such value, or the path is absent
    bool passed = false;
};

// A host call as the run saw it: the journal's entry and, for a failed call on a host object, the
// description the host gave with the failure (what a script reads in Err.Description).
struct HostCall {
    sim::JournalEntry entry;
    std::string failureDescription;  // empty when the call succeeded or the host gave none
};

struct StepResult {
    const Step* step = nullptr;
    // Calls: the outcome, with the outputs as the call left them and a result unless it raised; and
    // at most one of the failure and the other exception, when one escaped.
    std::optional<CallOutcome> outcome;
    std::optional<AutomationFailure> failure;
    std::optional<std::string> otherException;  // anything but an automation failure escaped the module
    std::vector<HostCall> hostCalls;
    // Host references the call left held: those the operation keeps by design, and the rest.
    long referencesKept = 0;
    long referencesLeaked = 0;
    std::vector<MxtAssert::Report> assertionReports;  // raised during the call
    std::optional<SupportPathsChange> supportPaths;   // when the call changed the global
    std::vector<ExpectationResult> expectations;
    // The host after the step, when the run keeps host states; the same object as the state before
    // it when the step changed nothing.
    std::shared_ptr<const sim::HostState> stateAfter;

    bool escaped() const { return failure.has_value() || otherException.has_value(); }
    // Every expectation held and the call leaked no host reference.
    bool passed() const;
};

struct RunResult {
    std::vector<StepResult> steps;
    nlohmann::json finalState;
    std::shared_ptr<const sim::HostState> initialState;  // when the run keeps host states

    int passedSteps() const;
    int failedSteps() const;
};

}  // namespace zorbsim
