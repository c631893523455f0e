#include "report.h"

#include "automation_failure.h"

#include <type_traits>

namespace zorbsim {
namespace {

using nlohmann::json;

// Strings as they are, in quotes (paths stay readable, without JSON's doubled backslashes), also
// inside arrays and objects, whose member names stand bare.
std::string displayValue(const json& value)
{
    if (value.is_string())
        return "\"" + value.get<std::string>() + "\"";
    if (value.is_array()) {
        std::string text = "[";
        for (std::size_t i = 0; i < value.size(); ++i)
            text += (i == 0 ? "" : ", ") + displayValue(value[i]);
        return text + "]";
    }
    if (value.is_object()) {
        std::string text;
        for (const auto& member : value.items())
            text += (text.empty() ? "" : ", ") + member.key() + ": " + displayValue(member.value());
        return "{" + text + "}";
    }
    return value.dump();
}

std::string callText(const CallStep& call)
{
    const Operation& operation = *call.operation;
    std::string text = operation.qualifiedName() + "(";
    for (const ParameterInfo& parameter : operation.parameters()) {
        text += (&parameter == &operation.parameters().front() ? "" : ", ") + parameter.name + ": " +
                displayValue(call.bound.arguments.at(parameter.name));
    }
    return text + ")";
}

void printOutcome(std::ostream& out, const Operation& operation, const StepResult& result)
{
    if (result.outcome) {
        std::string text;
        if (result.outcome->result) {
            const auto& display = operation.result()->display;
            text = display ? display(*result.outcome->result) : displayValue(*result.outcome->result);
        }
        for (const auto& [name, value] : result.outcome->outputs)
            text += (text.empty() ? "" : "; ") + name + " = " + displayValue(value);
        out << "  -> " << (text.empty() ? "done" : text) << "\n";
    }
    else if (result.failure) {
        out << "  -> automation failure " << hexStatus(result.failure->code);
        if (!result.failure->message.empty())
            out << " (" << result.failure->message << ")";
        if (!result.failure->description.empty())
            out << ": " << result.failure->description;
        out << "\n";
    }
    else if (result.otherException) {
        out << "  -> exception: " << *result.otherException << "\n";
    }
    if (result.referencesKept != 0)
        out << "  kept: " << result.referencesKept << " host reference(s), as " << operation.name()
            << " keeps its application reference by design\n";
    if (result.referencesLeaked != 0)
        out << "  leak: the call left " << result.referencesLeaked << " host reference(s) held\n";
}

// Only what the call added: a step without reports or a changed global shows nothing here.
void printCoreLibraryRecords(std::ostream& out, const StepResult& result)
{
    for (const MxtAssert::Report& report : result.assertionReports)
        out << "  assertion: \"" << report.condition << "\" at " << report.path << ":" << report.line << "\n";
    if (result.supportPaths) {
        const std::optional<std::string>& text = result.supportPaths->text;
        out << "  MxtGlobalStorage::g_pZorbSupportPaths = " << (text ? displayValue(*text) : "null") << "\n";
    }
}

// A call's outcome stands above its expectations, so a passed one shows only its subject; the
// host state has no such line, so there the value is shown too.
void printExpectation(std::ostream& out, const ExpectationResult& expectation, bool showPassedValue)
{
    const auto text = [](const json& value) { return value.is_string() ? value.get<std::string>() : value.dump(); };
    if (expectation.passed) {
        out << "  pass  " << expectation.subject;
        if (expectation.kind == ExpectationKind::throws)
            out << " " << text(expectation.expected);
        else if (showPassedValue)
            out << ": " << displayValue(expectation.expected);
        out << "\n";
        return;
    }
    const std::string actual = !expectation.actual ? std::string("nothing")
                               : expectation.kind == ExpectationKind::value ? displayValue(*expectation.actual)
                                                                            : text(*expectation.actual);
    switch (expectation.kind) {
    case ExpectationKind::value:
        out << "  FAIL  " << expectation.subject << ": expected " << displayValue(expectation.expected) << ", got "
            << actual << "\n";
        break;
    case ExpectationKind::throws:
        out << "  FAIL  throws: expected " << text(expectation.expected) << ", got " << actual << "\n";
        break;
    case ExpectationKind::noFailure:
        out << "  FAIL  no automation failure expected, got " << actual << "\n";
        break;
    }
}

void printExpectations(std::ostream& out, const StepResult& result, bool showPassedValues)
{
    for (const ExpectationResult& expectation : result.expectations)
        printExpectation(out, expectation, showPassedValues);
}

void printHostCalls(std::ostream& out, const StepResult& result)
{
    if (result.hostCalls.empty()) {
        out << "  host calls: none\n";
        return;
    }
    out << "  host calls:\n";
    for (const sim::JournalEntry& entry : result.hostCalls)
        out << "    " << sim::formatJournalLine(entry) << "\n";
}

void printFaults(std::ostream& out, const FaultsStep& faults)
{
    if (faults.clear)
        out << "  faults: clear all\n";
    if (!faults.arm.empty())
        out << "  faults: arm " << faults.armed.dump() << "\n";
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
                    out << "  " << callText(action) << "\n";
                    printOutcome(out, *action.operation, result);
                    printCoreLibraryRecords(out, result);
                    printExpectations(out, result, false);
                    if (trace)
                        printHostCalls(out, result);
                }
                else if constexpr (std::is_same_v<Action, FaultsStep>) {
                    printFaults(out, action);
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
