// The lines a step's report is made of, without indentation: the text report prints them, the
// HTML report sets them in its page.
#pragma once

#include "run_result.h"
#include "scenario.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace zorbsim {

// Strings as they are, in quotes (paths stay readable, without JSON's doubled backslashes), also
// inside arrays and objects, whose member names stand bare.
std::string displayValue(const nlohmann::json& value);

// The trace line of a host call, with the description the host gave when it failed:
// "HostDocuments.Open(...) on HostDocuments -> HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND): drawing ..."
std::string hostCallLine(const HostCall& call);

// "ZORBAppUtilities::getHatchFilePath(valueName: \"HatchFile\", path: \"\")"
std::string callLine(const CallStep& call);
// "-> true; path = \"zorb.pat\"", "-> automation failure ...", then the references kept or leaked.
std::vector<std::string> outcomeLines(const Operation& operation, const StepResult& result);
// What the core library recorded during the call: contract reports, a changed support path global.
std::vector<std::string> coreLibraryLines(const StepResult& result);
// "pass  result" or "FAIL  path: expected ..., got ..."; `showPassedValue` adds the value to a
// passed one, for expectations that have no outcome line above them.
std::string expectationLine(const ExpectationResult& expectation, bool showPassedValue);
std::vector<std::string> faultsLines(const FaultsStep& faults);

}  // namespace zorbsim
