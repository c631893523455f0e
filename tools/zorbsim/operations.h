// Every exported operation of the module that zorbsim can call.
#pragma once

#include "input_error.h"
#include "operation.h"

#include <string>
#include <vector>

namespace zorbsim {

// In the order `zorbsim ops` lists them.
const std::vector<Operation>& operationTable();

// By its qualified name ("ZORBAppUtilities::getCadDrawingPath"), or by its bare name where only
// one class has it. An unknown or ambiguous name fails at `place`.
const Operation& findOperation(const std::string& name, const InputPlace& place);

}  // namespace zorbsim
