// A scenario: the host to start from and the steps to play on it, read and checked completely
// before anything runs, so that bad input never leaves a half-run host behind.
#pragma once

#include "automation.h"
#include "operation.h"
#include "output_file.h"

#include "sim/faults.h"
#include "sim/model.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zorbsim {

struct CallExpectations {
    std::optional<nlohmann::json> result;
    std::vector<std::pair<std::string, nlohmann::json>> outputs;  // output parameter -> value after the call
    std::optional<HRESULT> throws;                                // the automation failure that must come
};

struct CallStep {
    const Operation* operation = nullptr;
    BoundCall bound;
    CallExpectations expect;
};

struct FaultsStep {
    bool clear = false;               // disarm every armed fault first
    std::vector<sim::Fault> arm;      // then arm these, in order
    nlohmann::json armed = nlohmann::json::array();  // as the scenario wrote them, for the report
};

struct HostExpectation {
    std::string pointer;  // JSON pointer into the dumped host state
    nlohmann::json value;
};

struct ExpectHostStep {
    std::vector<HostExpectation> expectations;
};

using StepAction = std::variant<CallStep, FaultsStep, ExpectHostStep>;

struct Step {
    int number = 0;     // from 1
    std::string title;  // optional, for the report
    StepAction action;
};

struct Scenario {
    std::string name;             // the file, or "built-in demo"
    std::string description;      // optional, for the report
    std::string hostDescription;  // "built-in default host", "inline", or the state file
    // The scenario's file and the host state file it names, which no output may replace.
    std::vector<InputFile> inputFiles;
    sim::HostState host;
    std::vector<Step> steps;
};

// `name` names the document in messages; a host state file is looked for relative to
// `folder`. Bad input throws an InputError naming the place.
Scenario parseScenario(const nlohmann::json& document, const std::string& name, const std::string& folder);
Scenario loadScenarioFile(const std::string& path);

}  // namespace zorbsim
