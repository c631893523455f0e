// What a caller learns of a failure: EXCEPINFO field by field (given or not), the status Invoke
// returns for the host's own statuses, and the thread's error information after the call.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const Invocation kMissingGroup{L"Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {L"NoSuchGroup"}};
const Invocation kCount{L"Count", DISPATCH_PROPERTYGET};

// Arranges that every call of `method` fails with `status`.
std::function<void(ProbedHost&)> failing(const char* method,
                                         HRESULT status = static_cast<HRESULT>(0x8004C0DEL))
{
    return [method, status](ProbedHost& host) { host.failCalls(method, status); };
}

void countAnsweredWithSFalse(ProbedHost& host)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::answer;
    fault.method = "HostMenuGroups.get_Count";
    fault.status = S_FALSE;
    host.host().armFault(std::move(fault));
}

// Leaves error information of the case's own on the thread before the call.
void leaveErrorInfo(ProbedHost&)
{
    ICreateErrorInfoPtr creator;
    CreateErrorInfo(&creator);
    creator->SetSource(const_cast<LPOLESTR>(L"Earlier"));
    creator->SetDescription(const_cast<LPOLESTR>(L"left before the call"));
    SetErrorInfo(0, IErrorInfoPtr(creator));
}

[[maybe_unused]] const bool kExceptions = addCases(
    "exceptions",
    {
        {"host_refusal", Subject::groups, kMissingGroup, {}, true},
        {"host_refusal_without_excepinfo", Subject::groups, withoutExcepinfo(kMissingGroup), {}, true},
        {"host_refusal_of_a_put", Subject::layout, put(L"PlotType", 99L), {}, true},
        {"host_refusal_of_a_method_without_result",
         Subject::toolbar,
         {L"Dock", DISPATCH_METHOD, {9L}},
         {},
         true},
        {"injected_failure_of_a_get", Subject::groups, kCount, {}, true, failing("HostMenuGroups.get_Count")},
        {"injected_failure_of_a_put",
         Subject::files,
         put(L"SupportPath", L"D:\\Support"),
         {},
         true,
         failing("HostPreferencesFiles.put_SupportPath", E_ACCESSDENIED)},
        {"injected_failure_without_excepinfo",
         Subject::groups,
         withoutExcepinfo(kCount),
         {},
         true,
         failing("HostMenuGroups.get_Count", E_FAIL)},
        {"success_status_other_than_s_ok", Subject::groups, kCount, {}, true, countAnsweredWithSFalse},
        {"success_leaves_excepinfo_alone", Subject::groups, kCount, {}, true},
        {"dispatcher_refusal_leaves_excepinfo_alone",
         Subject::groups,
         {L"Item", DISPATCH_METHOD, {0L, 1L}},
         {},
         true},
        {"earlier_error_info_and_a_successful_call", Subject::groups, kCount, {}, true, leaveErrorInfo},
        {"earlier_error_info_and_a_dispatcher_refusal", Subject::groups, {99}, {}, true, leaveErrorInfo},
        {"earlier_error_info_and_a_host_refusal",
         Subject::groups,
         {L"Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {L"Nothing"}},
         {},
         true,
         leaveErrorInfo},
        {"failure_of_a_loaded_group",
         Subject::groups,
         {L"LoadMenuFile", DISPATCH_METHOD, {L"C:\\No\\Such\\Menu"}},
         {},
         true},
    });

}  // namespace
