#include "scenario.h"

#include "automation_failure.h"
#include "input_error.h"
#include "json_file.h"
#include "json_values.h"
#include "operations.h"
#include "state_file.h"

#include "sim/host.h"
#include "sim/state_json.h"

#include <filesystem>
#include <map>

namespace zorbsim {
namespace {

using nlohmann::json;

void readHost(const json& document, const InputPlace& root, const std::string& folder, Scenario& scenario)
{
    const json host = document.value("host", json());
    const InputPlace place = root / "host";
    if (host.is_null()) {
        scenario.host = sim::defaultHostState();
        scenario.hostDescription = "built-in default host";
    }
    else if (host.is_object()) {
        try {
            scenario.host = sim::stateFromJson(host);
        }
        catch (const sim::StateError& error) {
            place.failAt(place.pointer() + error.path(), error.problem());
        }
        scenario.hostDescription = "inline host state";
    }
    else if (host.is_string()) {
        const std::string path = (std::filesystem::path(folder) / host.get<std::string>()).string();
        try {
            scenario.host = readStateFile(path);
        }
        catch (const InputError& error) {
            place.fail(error.what());  // the host file's own place follows the scenario's
        }
        scenario.hostDescription = path;
        scenario.inputFiles.push_back({path, "the host state the scenario names"});
    }
    else {
        place.fail("expected a host state object, or the path of a host state file");
    }
}

// An expected output may be the platform's text for a status, {"messageOf": "0x80004005"}, so that
// one scenario holds on every platform and in every language.
json expectedOutput(const json& value, const InputPlace& place)
{
    if (!value.is_object())
        return value;
    const sim::JsonReader reference = place.read(value);
    reference.expectObject({"messageOf"});
    return platformMessage(readStatusCode(reference.required("messageOf")));
}

CallExpectations readCallExpectations(const json& expect, const Operation& operation, const InputPlace& place)
{
    CallExpectations expectations;
    if (expect.is_null())
        return expectations;
    if (!expect.is_object())
        place.fail("expected an object with \"result\", \"outputs\" or \"throws\"");
    place.read(expect).expectObject({"result", "outputs", "throws"});
    if (expect.contains("throws")) {
        if (expect.contains("result"))
            place.fail("\"throws\" cannot be combined with \"result\": a failed call returns none");
        expectations.throws = readStatusCode(place.read(expect).required("throws"));
    }
    if (expect.contains("result")) {
        if (!operation.result())
            (place / "result").fail(operation.signature() + " returns nothing");
        operation.result()->checkOutcome(expect["result"], place / "result");
        expectations.result = expect["result"];
    }
    if (expect.contains("outputs")) {
        const json& outputs = expect["outputs"];
        if (!outputs.is_object())
            (place / "outputs").fail("expected an object of output parameters by name");
        std::map<std::string, json> expected;
        for (const auto& output : outputs.items()) {
            const ParameterInfo* parameter = operation.findParameter(output.key());
            const InputPlace outputPlace = place / "outputs" / output.key();
            if (parameter == nullptr || !parameter->isOutput())
                outputPlace.fail("not an output parameter of " + operation.signature());
            json value = expectedOutput(output.value(), outputPlace);
            parameter->checkOutcome(value, outputPlace);
            expected.emplace(output.key(), std::move(value));
        }
        // Checked and reported in the order of the signature.
        for (const ParameterInfo& parameter : operation.parameters()) {
            if (const auto found = expected.find(parameter.name); found != expected.end())
                expectations.outputs.emplace_back(parameter.name, found->second);
        }
    }
    return expectations;
}

CallStep readCallStep(const json& step, const InputPlace& place)
{
    const sim::JsonReader reader = place.read(step);
    reader.expectObject({"title", "call", "args", "expect"});
    CallStep call;
    call.operation = &findOperation(reader.required("call").bytes(), place / "call");
    call.bound = call.operation->bind(step.value("args", json()), place / "args");
    call.expect = readCallExpectations(step.value("expect", json()), *call.operation, place / "expect");
    return call;
}

FaultsStep readFaultsStep(const json& step, const InputPlace& stepPlace)
{
    stepPlace.read(step).expectObject({"title", "faults"});
    const json& faults = step["faults"];
    const InputPlace place = stepPlace / "faults";
    if (!faults.is_object() || faults.empty())
        place.fail("expected an object with \"clear\": true and/or \"arm\": [faults]");
    place.read(faults).expectObject({"clear", "arm"});
    FaultsStep result;
    if (faults.contains("clear")) {
        result.clear = place.read(faults).required("clear").boolean();
        if (!result.clear)
            (place / "clear").fail("only true makes sense here; leave \"clear\" out to keep the armed faults");
    }
    if (faults.contains("arm")) {
        result.armed = faults["arm"];
        try {
            result.arm = sim::faultsFromJson(result.armed);
        }
        catch (const sim::StateError& error) {
            place.failAt((place / "arm").pointer() + error.path(), error.problem());
        }
    }
    return result;
}

ExpectHostStep readExpectHostStep(const json& step, const InputPlace& stepPlace)
{
    stepPlace.read(step).expectObject({"title", "expectHost"});
    const json& paths = step["expectHost"];
    const InputPlace place = stepPlace / "expectHost";
    if (!paths.is_object() || paths.empty())
        place.fail("expected an object of JSON pointers into the host state with the values they must hold");
    ExpectHostStep result;
    for (const auto& path : paths.items()) {
        try {
            (void)json::json_pointer(path.key());
        }
        catch (const json::exception&) {
            (place / path.key()).fail("not a JSON pointer (such as \"/preferences/supportPath\")");
        }
        result.expectations.push_back({path.key(), path.value()});
    }
    return result;
}

Step readStep(const json& step, std::size_t index, const InputPlace& root)
{
    const InputPlace place = root.step(index);
    if (!step.is_object())
        place.fail("expected an object with one of \"call\", \"faults\" or \"expectHost\"");
    const sim::JsonReader reader = place.read(step);
    reader.expectObject({"title", "call", "args", "expect", "faults", "expectHost"});
    const int kinds = static_cast<int>(step.contains("call")) + static_cast<int>(step.contains("faults")) +
                      static_cast<int>(step.contains("expectHost"));
    if (kinds != 1)
        place.fail("a step has exactly one of \"call\", \"faults\" or \"expectHost\"");
    Step result;
    result.number = static_cast<int>(index) + 1;
    if (const auto title = reader.member("title"))
        result.title = title->bytes();
    if (step.contains("call"))
        result.action = readCallStep(step, place);
    else if (step.contains("faults"))
        result.action = readFaultsStep(step, place);
    else
        result.action = readExpectHostStep(step, place);
    return result;
}

}  // namespace

Scenario parseScenario(const json& document, const std::string& name, const std::string& folder)
{
    const InputPlace root(name);
    if (!document.is_object())
        root.fail("expected an object with \"steps\"");
    const sim::JsonReader reader = root.read(document);
    reader.expectObject({"description", "host", "steps"});
    Scenario scenario;
    scenario.name = name;
    if (const auto description = reader.member("description"))
        scenario.description = description->bytes();
    readHost(document, root, folder, scenario);
    const json& steps = reader.required("steps").value();
    if (!steps.is_array())
        (root / "steps").fail("expected an array of steps");
    for (std::size_t i = 0; i < steps.size(); ++i)
        scenario.steps.push_back(readStep(steps[i], i, root));
    return scenario;
}

Scenario loadScenarioFile(const std::string& path)
{
    Scenario scenario = parseScenario(readJsonFile(path), path, std::filesystem::path(path).parent_path().string());
    scenario.inputFiles.push_back({path, "the scenario being run"});
    return scenario;
}

}  // namespace zorbsim
