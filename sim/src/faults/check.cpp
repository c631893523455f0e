#include "faults/check.h"

#include "faults/host_methods.h"
#include "json/names.h"

#include "sim/journal.h"

#include <climits>

namespace sim::detail {
namespace {

using Reason = std::optional<std::string>;

bool namesMethod(FaultKind kind)
{
    return kind == FaultKind::failCall || kind == FaultKind::nullObject || kind == FaultKind::answer;
}

bool isRuntimeFault(FaultKind kind)
{
    return kind == FaultKind::failStringAllocation || kind == FaultKind::failVariantCopy;
}

// The range of raw numbers a method's result can hold: 16 bits of any pattern for a yes/no or an
// SDK short value, 32 signed bits for a LONG.
bool fitsResult(Gives gives, long long number)
{
    switch (gives) {
    case Gives::yesNo:
    case Gives::shortNumber:
        return number >= SHRT_MIN && number <= USHRT_MAX;
    case Gives::longNumber:
        return number >= INT32_MIN && number <= INT32_MAX;
    default:
        return false;
    }
}

Reason whyAnswerCannotAct(const Fault& fault, const HostMethod& method)
{
    if (FAILED(fault.status))
        return "an answer fault succeeds: its status must not be a failure (use failCall)";
    if (!method.reportsStatus && fault.status != S_OK)
        return fault.method + " reports no status, so an answer of it keeps S_OK";
    switch (fault.answer.kind) {
    case Answer::Kind::hostValue:
        if (fault.status == S_OK)
            return "an answer fault gives an \"answer\" or a success status other than S_OK";
        return std::nullopt;
    case Answer::Kind::number:
        if (method.gives != Gives::longNumber && method.gives != Gives::yesNo &&
            method.gives != Gives::shortNumber)
            return fault.method + " gives no number to answer";
        if (!fitsResult(method.gives, fault.answer.number))
            return "the answer " + std::to_string(fault.answer.number) + " does not fit what " +
                   fault.method + " gives (" +
                   (method.gives == Gives::longNumber ? "32 signed bits" : "16 bits") + ")";
        return std::nullopt;
    case Answer::Kind::null:
        if (method.gives != Gives::text && method.gives != Gives::foundPath)
            return fault.method + " gives no text that could be null (withhold an object with nullObject)";
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> whyFaultCannotAct(const Fault& fault)
{
    const std::string kind = nameOfFaultKind(fault.kind);
    if (fault.nth < 0)
        return "a fault counts calls from 1 (0 for every call), not " + std::to_string(fault.nth);
    if (fault.kind != FaultKind::answer && fault.answer.kind != Answer::Kind::hostValue)
        return "only an answer fault gives an \"answer\"";
    if ((fault.kind == FaultKind::failCall || fault.kind == FaultKind::failVariantCopy) &&
        SUCCEEDED(fault.status))
        return "a " + kind + " fault needs a failing status, not " + statusName(fault.status);
    if (isRuntimeFault(fault.kind)) {
        if (!canFailRuntimeCalls())
            return "a " + kind + " fault needs the portable automation runtime, not the platform's";
        if (fault.nth == 0)
            return "a " + kind + " fault names which call fails (nth from 1)";
    }
    if (!namesMethod(fault.kind)) {
        if (!fault.method.empty())
            return "a " + kind + " fault is about a call of its own and names no method";
        return std::nullopt;
    }
    if (fault.method.empty())
        return "a " + kind + " fault names the method it is about";
    const HostMethod* method = findHostMethod(fault.method);
    if (method == nullptr)
        return "the simulated host has no method " + fault.method;
    if (fault.kind == FaultKind::nullObject && method->gives != Gives::object)
        return fault.method + " gives no object to withhold";
    if (fault.kind == FaultKind::answer)
        return whyAnswerCannotAct(fault, *method);
    return std::nullopt;
}

}  // namespace sim::detail
