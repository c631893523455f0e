// The ways an operation's body can be guarded, side by side: each operation has exactly one of
// them, or none (the automation failure then reaches the caller). ZORBAppUtilities.h says
// which operation has which.
#pragma once

#include "MxtString"
#include "automation.h"

#include <utility>

namespace external_utilities {

// Forms the failure's message and drops it: the module shows and logs nothing.
void dropFailureMessage(const _com_error& failure);

// Catches the automation failure, forming its message and dropping it. The body sets the
// operation's result only as its last step, so a failure anywhere leaves the failure value the
// operation started with. Other exceptions pass.
template <class Body> void catchAutomationFailure(Body&& body)
{
    try {
        std::forward<Body>(body)();
    }
    catch (const _com_error& failure) {
        dropFailureMessage(failure);
    }
}

// Catches the automation failure and hands its message to the caller in `message`, which is written
// only then.
template <class Body> void catchAutomationFailure(Body&& body, MxtString& message)
{
    try {
        std::forward<Body>(body)();
    }
    catch (const _com_error& failure) {
        message = failure.ErrorMessage();
    }
}

// Catches the automation failure without forming its message: for lookups whose callers only see
// what the lookup had found so far.
template <class Body> void catchAutomationFailureQuietly(Body&& body)
{
    try {
        std::forward<Body>(body)();
    }
    catch (const _com_error&) {
    }
}

// Catches every exception, of any kind, and returns silently: what was done stays done.
template <class Body> void catchEverything(Body&& body)
{
    try {
        std::forward<Body>(body)();
    }
    catch (...) {
    }
}

}  // namespace external_utilities
