// Checking a step's expectations against what the step gave.
#pragma once

#include "run_result.h"
#include "scenario.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace zorbsim {

// A failure that escaped the call fails the step unless it was the one expected.
std::vector<ExpectationResult> checkCall(const CallExpectations& expect, const StepResult& call);

std::vector<ExpectationResult> checkHost(const ExpectHostStep& expect, const nlohmann::json& hostState);

}  // namespace zorbsim
