// Faults to arm on the simulated host (HostFixture::armFault), by what they do. A method is named
// as the host-call trace names it: "HostToolbar.put_Visible", "sdk.zbedFindFile".
#pragma once

#include "sim/faults.h"

#include <string>

namespace simtest {

// The nth call of `method` (0: every call) fails with `status`.
inline sim::Fault failingCall(std::string method, int nth = 0, HRESULT status = E_FAIL)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::failCall;
    fault.method = std::move(method);
    fault.nth = nth;
    fault.status = status;
    return fault;
}

// The nth call of `method` (0: every call) succeeds but gives no object.
inline sim::Fault withheldObject(std::string method, int nth = 0)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::nullObject;
    fault.method = std::move(method);
    fault.nth = nth;
    return fault;
}

// The nth call of `method` (0: every call) succeeds with `status`, giving `answer` in place of the
// host's own value.
inline sim::Fault answering(std::string method, sim::Answer answer, int nth = 0, HRESULT status = S_OK)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::answer;
    fault.method = std::move(method);
    fault.nth = nth;
    fault.status = status;
    fault.answer = answer;
    return fault;
}

inline sim::Answer rawNumber(long long number)
{
    return {sim::Answer::Kind::number, number};
}
inline sim::Answer nullAnswer()
{
    return {sim::Answer::Kind::null, 0};
}
inline sim::Answer hostValue()
{
    return {};
}

// A fault of a kind that names no method: no framework object, no dispatch, the application
// interface refused, a string allocation failed.
inline sim::Fault faultOfKind(sim::FaultKind kind, int nth = 0)
{
    sim::Fault fault;
    fault.kind = kind;
    fault.nth = nth;
    return fault;
}

}  // namespace simtest
