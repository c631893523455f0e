#include "report_lines.h"

#include "automation_failure.h"

#include "sim/journal.h"

namespace zorbsim {

using nlohmann::json;

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

std::string hostCallLine(const HostCall& call)
{
    const std::string line = sim::formatJournalLine(call.entry);
    return call.failureDescription.empty() ? line : line + ": " + call.failureDescription;
}

std::string callLine(const CallStep& call)
{
    const Operation& operation = *call.operation;
    std::string text = operation.qualifiedName() + "(";
    for (const ParameterInfo& parameter : operation.parameters()) {
        text += (&parameter == &operation.parameters().front() ? "" : ", ") + parameter.name + ": " +
                displayValue(call.bound.arguments.at(parameter.name));
    }
    return text + ")";
}

std::vector<std::string> outcomeLines(const Operation& operation, const StepResult& result)
{
    std::vector<std::string> lines;
    std::string resultText;
    std::string outputs;
    if (result.outcome) {
        if (result.outcome->result) {
            const auto& display = operation.result()->display;
            resultText = display ? display(*result.outcome->result) : displayValue(*result.outcome->result);
        }
        for (const auto& [name, value] : result.outcome->outputs)
            outputs += (outputs.empty() ? "" : "; ") + name + " = " + displayValue(value);
    }
    if (result.failure) {
        std::string line = "-> automation failure " + sim::statusInHex(result.failure->code);
        if (!result.failure->message.empty())
            line += " (" + result.failure->message + ")";
        if (!result.failure->description.empty())
            line += ": " + result.failure->description;
        lines.push_back(line);
    }
    else if (result.otherException) {
        lines.push_back("-> exception: " + *result.otherException);
    }
    else if (result.outcome) {
        const std::string text = resultText + (resultText.empty() || outputs.empty() ? "" : "; ") + outputs;
        lines.push_back("-> " + (text.empty() ? std::string("done") : text));
    }
    // A call that raised leaves the caller's variables as it had written them.
    if (result.escaped() && !outputs.empty())
        lines.push_back("outputs: " + outputs);
    if (result.referencesKept != 0)
        lines.push_back("kept: " + std::to_string(result.referencesKept) + " host reference(s), as " +
                        operation.name() + " keeps its application reference by design");
    if (result.referencesLeaked != 0)
        lines.push_back("leak: the call left " + std::to_string(result.referencesLeaked) +
                        " host reference(s) held");
    return lines;
}

// Only what the call added: a step without reports or a changed global shows nothing here.
std::vector<std::string> coreLibraryLines(const StepResult& result)
{
    std::vector<std::string> lines;
    for (const MxtAssert::Report& report : result.assertionReports)
        lines.push_back("assertion: \"" + report.condition + "\" at " + report.path + ":" +
                        std::to_string(report.line));
    if (result.supportPaths) {
        const std::optional<std::string>& text = result.supportPaths->text;
        lines.push_back("MxtGlobalStorage::g_pZorbSupportPaths = " + (text ? displayValue(*text) : "null"));
    }
    return lines;
}

// A call's outcome stands above its expectations, so a passed one shows only its subject; the
// host state has no such line, so there the value is shown too.
std::string expectationLine(const ExpectationResult& expectation, bool showPassedValue)
{
    const auto text = [](const json& value) {
        return value.is_string() ? value.get<std::string>() : value.dump();
    };
    if (expectation.passed) {
        std::string line = "pass  " + expectation.subject;
        if (expectation.kind == ExpectationKind::throws)
            line += " " + text(expectation.expected);
        else if (showPassedValue)
            line += ": " + displayValue(expectation.expected);
        return line;
    }
    const std::string actual = !expectation.actual ? std::string("nothing")
                               : expectation.kind == ExpectationKind::value
                                   ? displayValue(*expectation.actual)
                                   : text(*expectation.actual);
    switch (expectation.kind) {
    case ExpectationKind::value:
        return "FAIL  " + expectation.subject + ": expected " + displayValue(expectation.expected) +
               ", got " + actual;
    case ExpectationKind::throws:
        return "FAIL  throws: expected " + text(expectation.expected) + ", got " + actual;
    case ExpectationKind::noFailure:
        break;
    }
    return "FAIL  no automation failure expected, got " + actual;
}

std::vector<std::string> faultsLines(const FaultsStep& faults)
{
    std::vector<std::string> lines;
    if (faults.clear)
        lines.push_back("faults: clear all");
    if (!faults.arm.empty())
        lines.push_back("faults: arm " + faults.armed.dump());
    return lines;
}

}  // namespace zorbsim
