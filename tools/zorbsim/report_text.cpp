#include "report.h"

#include "report_lines.h"

#include <type_traits>

namespace zorbsim {
namespace {

void printLines(std::ostream& out, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        out << "  " << line << "\n";
}

void printExpectations(std::ostream& out, const StepResult& result, bool showPassedValues)
{
    for (const ExpectationResult& expectation : result.expectations)
        out << "  " << expectationLine(expectation, showPassedValues) << "\n";
}

void printHostCalls(std::ostream& out, const StepResult& result)
{
    if (result.hostCalls.empty()) {
        out << "  host calls: none\n";
        return;
    }
    out << "  host calls:\n";
    for (const HostCall& call : result.hostCalls)
        out << "    " << hostCallLine(call) << "\n";
}

}  // namespace

void printTextReport(std::ostream& out, const Scenario& scenario, const RunResult& run, bool trace)
{
    out << "Scenario: " << scenario.name << "\n";
    if (!scenario.description.empty())
        out << scenario.description << "\n";
    out << "Host: " << scenario.hostDescription << "\n";
    for (const StepResult& result : run.steps) {
        const Step& step = *result.step;
        out << "\nstep " << step.number << (step.title.empty() ? "" : ": " + step.title) << "\n";
        std::visit(
            [&](const auto& action) {
                using Action = std::decay_t<decltype(action)>;
                if constexpr (std::is_same_v<Action, CallStep>) {
                    out << "  " << callLine(action) << "\n";
                    printLines(out, outcomeLines(*action.operation, result));
                    printLines(out, coreLibraryLines(result));
                    printExpectations(out, result, false);
                    if (trace)
                        printHostCalls(out, result);
                }
                else if constexpr (std::is_same_v<Action, FaultsStep>) {
                    printLines(out, faultsLines(action));
                }
                else {
                    out << "  host state:\n";
                    printExpectations(out, result, true);
                }
            },
            step.action);
    }
    out << "\n" << run.passedSteps() << " passed, " << run.failedSteps() << " failed\n";
}

}  // namespace zorbsim
