#include "expectations.h"

#include "automation_failure.h"

namespace zorbsim {
namespace {

using nlohmann::json;

json escapedText(const StepResult& call)
{
    if (call.failure)
        return statusWithMessage(call.failure->code);
    if (call.otherException)
        return "exception: " + *call.otherException;
    return "no automation failure";
}

ExpectationResult compare(std::string subject, const json& expected, std::optional<json> actual)
{
    const bool passed = actual && *actual == expected;
    return {ExpectationKind::value, std::move(subject), expected, std::move(actual), passed};
}

// None when the path leads nowhere in the state (an index into an object, a name into an array ...).
std::optional<json> lookUp(const json& state, const std::string& pointer)
{
    try {
        return state.at(json::json_pointer(pointer));
    }
    catch (const json::exception&) {
        return std::nullopt;
    }
}

}  // namespace

std::vector<ExpectationResult> checkCall(const CallExpectations& expect, const StepResult& call)
{
    std::vector<ExpectationResult> results;
    if (expect.throws) {
        const bool passed = call.failure && call.failure->code == *expect.throws;
        results.push_back(
            {ExpectationKind::throws, "throws", statusWithMessage(*expect.throws), escapedText(call), passed});
    }
    else if (call.escaped()) {
        return {{ExpectationKind::noFailure, "no automation failure", "no automation failure", escapedText(call), false}};
    }
    // The outputs are there whether or not the call raised; the result only when it returned.
    if (expect.result)
        results.push_back(compare("result", *expect.result, call.outcome->result));
    for (const auto& [name, expected] : expect.outputs) {
        std::optional<json> actual;
        for (const auto& [outputName, value] : call.outcome->outputs) {
            if (outputName == name)
                actual = value;
        }
        results.push_back(compare(name, expected, actual));
    }
    return results;
}

std::vector<ExpectationResult> checkHost(const ExpectHostStep& expect, const json& hostState)
{
    std::vector<ExpectationResult> results;
    for (const HostExpectation& expectation : expect.expectations) {
        results.push_back(compare(expectation.pointer, expectation.value, lookUp(hostState, expectation.pointer)));
    }
    return results;
}

}  // namespace zorbsim
