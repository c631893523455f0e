#include "report.h"

#include "automation_failure.h"

#include "sim/journal.h"
#include "sim/state_json.h"

#include <variant>

namespace zorbsim {
namespace {

using Json = nlohmann::ordered_json;

void addCall(Json& report, const CallStep& call, const StepResult& result, bool trace)
{
    report["call"] = call.operation->qualifiedName();
    Json arguments = Json::object();
    for (const ParameterInfo& parameter : call.operation->parameters())
        arguments[parameter.name] = Json(call.bound.arguments.at(parameter.name));
    report["args"] = std::move(arguments);
    if (result.outcome) {
        if (result.outcome->result)
            report["result"] = Json(*result.outcome->result);
        Json outputs = Json::object();
        for (const auto& [name, value] : result.outcome->outputs)
            outputs[name] = Json(value);
        report["outputs"] = std::move(outputs);
    }
    if (result.failure) {
        report["failure"] = {{"code", sim::statusInHex(result.failure->code)},
                             {"message", result.failure->message},
                             {"description", result.failure->description}};
    }
    if (result.otherException)
        report["exception"] = *result.otherException;
    report["referencesKept"] = result.referencesKept;
    report["referencesLeaked"] = result.referencesLeaked;
    if (!result.assertionReports.empty()) {
        Json assertions = Json::array();
        for (const MxtAssert::Report& assertion : result.assertionReports)
            assertions.push_back(
                {{"condition", assertion.condition}, {"path", assertion.path}, {"line", assertion.line}});
        report["assertions"] = std::move(assertions);
    }
    if (result.supportPaths) {
        const std::optional<std::string>& text = result.supportPaths->text;
        report["zorbSupportPaths"] = text ? Json(*text) : Json(nullptr);
    }
    if (trace) {
        Json calls = Json::array();
        for (const HostCall& hostCall : result.hostCalls) {
            Json entry = sim::journalEntryToJson(hostCall.entry);
            if (!hostCall.failureDescription.empty())
                entry["description"] = hostCall.failureDescription;
            calls.push_back(std::move(entry));
        }
        report["hostCalls"] = std::move(calls);
    }
}

Json expectationsJson(const StepResult& result)
{
    Json expectations = Json::array();
    for (const ExpectationResult& expectation : result.expectations) {
        Json item = {{"subject", expectation.subject}, {"expected", Json(expectation.expected)}};
        if (expectation.actual)
            item["actual"] = Json(*expectation.actual);
        item["passed"] = expectation.passed;
        expectations.push_back(std::move(item));
    }
    return expectations;
}

const char* kindName(const StepAction& action)
{
    return std::holds_alternative<CallStep>(action) ? "call" : std::holds_alternative<FaultsStep>(action) ? "faults" : "expectHost";
}

}  // namespace

void printJsonReport(std::ostream& out, const Scenario& scenario, const RunResult& run, bool trace,
                     const std::vector<std::string>& unwritten)
{
    Json steps = Json::array();
    for (const StepResult& result : run.steps) {
        const Step& step = *result.step;
        Json report = {{"step", step.number}, {"kind", kindName(step.action)}};
        if (!step.title.empty())
            report["title"] = step.title;
        if (const auto* call = std::get_if<CallStep>(&step.action))
            addCall(report, *call, result, trace);
        if (const auto* faults = std::get_if<FaultsStep>(&step.action)) {
            report["clear"] = faults->clear;
            report["arm"] = Json(faults->armed);
        }
        report["expectations"] = expectationsJson(result);
        report["passed"] = result.passed();
        steps.push_back(std::move(report));
    }
    Json document = {{"scenario", scenario.name}};
    if (!scenario.description.empty())
        document["description"] = scenario.description;
    document["host"] = scenario.hostDescription;
    document["steps"] = std::move(steps);
    document["passed"] = run.passedSteps();
    document["failed"] = run.failedSteps();
    if (!unwritten.empty())
        document["unwritten"] = unwritten;
    out << document.dump(2) << "\n";
}

}  // namespace zorbsim
