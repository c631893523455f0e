#include "faults/plan.h"
#include "faults/host_methods.h"

#include <cstring>

namespace sim {

bool Answer::operator==(const Answer& other) const
{
    return kind == other.kind && number == other.number;
}

bool Fault::operator==(const Fault& other) const
{
    return kind == other.kind && method == other.method && object == other.object && nth == other.nth &&
           status == other.status && answer == other.answer && matchingCallsSeen == other.matchingCallsSeen;
}

bool canFailRuntimeCalls()
{
#if AUTOMATION_HAS_TEST_HOOKS
    return true;
#else
    return false;
#endif
}

namespace detail {
namespace {

// The call a fault is about: its own method, or the one its kind stands for.
const char* methodOf(const Fault& fault)
{
    switch (fault.kind) {
    case FaultKind::failCall:
    case FaultKind::nullObject:
    case FaultKind::answer:
        return fault.method.c_str();
    case FaultKind::noFrameworkObject:
        return undescribed::zbedGetZorbWinApp.name;
    case FaultKind::noDispatch:
        return undescribed::getIDispatch.name;
    case FaultKind::refuseApplicationInterface:
        return undescribed::queryApplication.name;
    case FaultKind::failStringAllocation:
    case FaultKind::failVariantCopy:
        return nullptr;  // counted by the automation runtime, not by calls
    }
    return nullptr;
}

}  // namespace

bool faultMatchesMethod(const Fault& fault, const char* method)
{
    const char* faulted = methodOf(fault);
    return faulted != nullptr && std::strcmp(faulted, method) == 0;
}

void applyFault(const Fault& fault, FaultVerdict& verdict)
{
    switch (fault.kind) {
    case FaultKind::failCall:
        if (verdict.failure == S_OK)
            verdict.failure = fault.status;
        break;
    case FaultKind::refuseApplicationInterface:
        if (verdict.failure == S_OK)
            verdict.failure = E_NOINTERFACE;
        break;
    case FaultKind::nullObject:
    case FaultKind::noFrameworkObject:
    case FaultKind::noDispatch:
        verdict.giveNull = true;
        break;
    case FaultKind::answer:
        verdict.success = fault.status;
        verdict.answer = fault.answer;
        break;
    case FaultKind::failStringAllocation:
    case FaultKind::failVariantCopy:
        break;
    }
}

}  // namespace detail
}  // namespace sim
