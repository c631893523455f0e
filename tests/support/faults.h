// The test helper's faults, with a failure status of our own: a status no host call gives by
// itself, so that a test sees it was this fault that made an operation fail.
#pragma once

#include "simtest/faults.h"

namespace module_testing {

constexpr HRESULT kInjectedStatus = static_cast<HRESULT>(0x8004C0DEL);

inline sim::Fault failingCall(std::string method, int nth = 0, HRESULT status = kInjectedStatus)
{
    return simtest::failingCall(std::move(method), nth, status);
}

using simtest::answering;
using simtest::faultOfKind;
using simtest::hostValue;
using simtest::nullAnswer;
using simtest::rawNumber;
using simtest::withheldObject;

}  // namespace module_testing
