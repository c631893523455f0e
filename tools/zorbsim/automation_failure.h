// Automation failures and status codes as the report shows them: the code in hex with the
// platform's text for it, and the description the failing object left, if any.
#pragma once

#include "automation.h"

#include <string>

namespace zorbsim {

struct AutomationFailure {
    HRESULT code = S_OK;
    std::string message;      // the platform's text for the code
    std::string description;  // from the failing object's error information; empty when none was set
};

AutomationFailure describeFailure(const _com_error& error);

// The platform's text for a status, as a failure carrying it gives it: "Unspecified error" here,
// another text on another platform or in another language.
std::string platformMessage(HRESULT code);

// "0x80004005 (Unspecified error)"
std::string statusWithMessage(HRESULT code);

}  // namespace zorbsim
