#include "commands.h"

#include "html_report.h"
#include "html_view.h"
#include "operations.h"
#include "output_file.h"
#include "report.h"
#include "runner.h"
#include "state_file.h"

#include "sim/host.h"
#include "sim/state_json.h"

#include <iostream>
#include <sstream>
#include <utility>
#include <vector>

namespace zorbsim {
namespace {

// The outputs of a run besides its report, each checked before the run and written after it.
struct RunOutput {
    OutputTarget target;
    std::string (*render)(const Scenario& scenario, const RunResult& run);
};

std::string finalStateText(const Scenario&, const RunResult& run) { return run.finalState.dump(2) + "\n"; }

std::string runPage(const Scenario& scenario, const RunResult& run)
{
    std::ostringstream page;
    html::writeRunReport(page, scenario, run);
    return page.str();
}

std::vector<RunOutput> runOutputs(const ReportOptions& options, const std::vector<InputFile>& inputs)
{
    std::vector<RunOutput> outputs;
    if (options.dumpState)
        outputs.push_back(
            {{"--dump-state", options.dumpStatePath, "the host state", inputs}, finalStateText});
    if (options.html)
        outputs.push_back({{"--html", options.htmlPath, "the HTML report", inputs}, runPage});
    return outputs;
}

}  // namespace

int runScenarioCommand(Scenario scenario, const ReportOptions& options)
{
    const std::vector<RunOutput> outputs = runOutputs(options, scenario.inputFiles);
    for (const RunOutput& output : outputs)
        checkOutputTarget(output.target);
    // The page shows every step's host calls and the host after it; a run keeps them only for it.
    const RunResult run =
        runScenario(std::move(scenario.host), scenario.steps,
                    options.releases                  ? HostCalls::keptWithReleases
                    : options.trace || options.html ? HostCalls::kept
                                                    : HostCalls::dropped,
                    options.html ? HostStates::kept : HostStates::dropped);
    // The files are written before the report, so that a JSON report can carry what was not written.
    std::vector<std::string> unwritten;
    for (const RunOutput& output : outputs) {
        try {
            writeOutputFile(output.target, output.render(scenario, run));
        }
        catch (const OutputError& error) {
            unwritten.push_back(error.what());
        }
    }
    if (options.json)
        printJsonReport(std::cout, scenario, run, options.trace, unwritten);
    else
        printTextReport(std::cout, scenario, run, options.trace);
    std::cout.flush();
    for (const std::string& failure : unwritten)
        std::cerr << "zorbsim: the run is reported above, but " << failure << "\n";
    if (!unwritten.empty())
        return kWriteFailed;
    return run.failedSteps() == 0 ? kAllPassed : kExpectationFailed;
}

int printStateCommand(const std::string& hostPath)
{
    const sim::HostState state = hostPath.empty() ? sim::defaultHostState() : readStateFile(hostPath);
    std::cout << sim::stateToJson(state).dump(2) << "\n";
    return kAllPassed;
}

int viewCommand(const std::string& hostPath, const std::string& outputPath)
{
    std::vector<InputFile> inputs;
    if (!hostPath.empty())
        inputs.push_back({hostPath, "the host state being viewed"});
    const OutputTarget target{"-o", outputPath, "the view", std::move(inputs)};
    checkOutputTarget(target);
    const sim::HostState state = hostPath.empty() ? sim::defaultHostState() : readStateFile(hostPath);
    std::ostringstream page;
    html::writeViewPage(page, state, hostPath.empty() ? "built-in default host" : hostPath);
    try {
        writeOutputFile(target, page.str());
    }
    catch (const OutputError& error) {
        std::cerr << "zorbsim: " << error.what() << "\n";
        return kWriteFailed;
    }
    return kAllPassed;
}

int listOperationsCommand()
{
    for (const Operation& operation : operationTable())
        std::cout << operation.signature() << "\n";
    return kAllPassed;
}

}  // namespace zorbsim
