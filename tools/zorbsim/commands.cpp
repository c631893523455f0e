#include "commands.h"

#include "operations.h"
#include "output_file.h"
#include "report.h"
#include "runner.h"
#include "state_file.h"

#include "sim/host.h"
#include "sim/state_json.h"

#include <iostream>
#include <utility>

namespace zorbsim {

int runScenarioCommand(Scenario scenario, const ReportOptions& options)
{
    const OutputTarget dump{"--dump-state", options.dumpStatePath, "the host state"};
    if (options.dumpState)
        checkOutputTarget(dump);
    const RunResult run = runScenario(std::move(scenario.host), scenario.steps,
                                      options.trace ? HostCalls::kept : HostCalls::dropped);
    if (options.json)
        printJsonReport(std::cout, scenario, run, options.trace);
    else
        printTextReport(std::cout, scenario, run, options.trace);
    std::cout.flush();
    if (options.dumpState) {
        try {
            writeOutputFile(dump, run.finalState.dump(2) + "\n");
        }
        catch (const OutputError& error) {
            std::cerr << "zorbsim: the run is reported above, but " << error.what() << "\n";
            return kDumpFailed;
        }
    }
    return run.failedSteps() == 0 ? kAllPassed : kExpectationFailed;
}

int printStateCommand(const std::string& hostPath)
{
    const sim::HostState state = hostPath.empty() ? sim::defaultHostState() : readStateFile(hostPath);
    std::cout << sim::stateToJson(state).dump(2) << "\n";
    return kAllPassed;
}

int listOperationsCommand()
{
    for (const Operation& operation : operationTable())
        std::cout << operation.signature() << "\n";
    return kAllPassed;
}

}  // namespace zorbsim
