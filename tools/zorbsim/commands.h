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
    kWriteFailed = 3,  // the run was reported (or the state read), but a file it was to write was not written
};

struct ReportOptions {
    bool trace = false;          // the host calls under each call step
    bool releases = false;       // with them, each host object the module let go
    bool json = false;           // the report as JSON
    bool dumpState = false;      // --dump-state was given
    std::string dumpStatePath;   // where to write the final host state
    bool html = false;           // --html was given
    std::string htmlPath;        // where to write the run as a page
};

int runScenarioCommand(Scenario scenario, const ReportOptions& options);
// The host state of the file as JSON; the built-in default host when `hostPath` is empty.
int printStateCommand(const std::string& hostPath);
// The host state of the file (the built-in default host when `hostPath` is empty) as a page.
int viewCommand(const std::string& hostPath, const std::string& outputPath);
int listOperationsCommand();

}  // namespace zorbsim
