// What each subcommand does once its command line was read. Each returns the exit code; bad input
// throws an InputError, which the caller turns into kBadInput. Everything a run reads, the dump
// target among it, is checked before the run starts.
#pragma once

#include "scenario.h"

#include <string>

namespace zorbsim {

enum ExitCode : int {
    kAllPassed = 0,
    kExpectationFailed = 1,
    kBadInput = 2,
    kDumpFailed = 3,  // the run was reported, but --dump-state could not write the final state
};

struct ReportOptions {
    bool trace = false;          // the host calls under each call step
    bool json = false;           // the report as JSON
    bool dumpState = false;      // --dump-state was given
    std::string dumpStatePath;   // where to write the final host state
};

int runScenarioCommand(Scenario scenario, const ReportOptions& options);
// The host state of the file as JSON; the built-in default host when `hostPath` is empty.
int printStateCommand(const std::string& hostPath);
int listOperationsCommand();

}  // namespace zorbsim
