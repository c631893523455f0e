// The one way an operation answers an automation failure with its failure value instead of
// letting it reach the caller.
#pragma once

#include "automation.h"

#include <utility>

namespace external_utilities {

// Forms the failure's message and drops it: the module shows and logs nothing.
void dropFailureMessage(const _com_error& failure);

// Runs an operation's body under the handler for the automation failure. The body sets the
// operation's result only as its last step, so a failure anywhere leaves the failure value the
// operation started with. Other exceptions pass.
template <class Body>
void catchAutomationFailure(Body&& body)
{
    try {
        std::forward<Body>(body)();
    }
    catch (const _com_error& failure) {
        dropFailureMessage(failure);
    }
}

}  // namespace external_utilities
