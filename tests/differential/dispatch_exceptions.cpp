// What a caller learns of a failure: EXCEPINFO field by field (given or not), the status Invoke
// returns for the host's own statuses, and the thread's error information after the call.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Item("NoSuchGroup") on the menu groups, which the host refuses with DISP_E_BADINDEX.
std::string missingGroup(bool exceptionGiven)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    Invocation call{idOf(groups, L"Item"), kMethodOrGet, {_variant_t(L"NoSuchGroup")}};
    call.exceptionGiven = exceptionGiven;
    const std::string outcome = invoke(groups, std::move(call));
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

// Leaves error information of the case's own on the thread.
void leaveErrorInfo()
{
    ICreateErrorInfo* creator = nullptr;
    CreateErrorInfo(&creator);
    creator->SetSource(const_cast<LPOLESTR>(L"Earlier"));
    creator->SetDescription(const_cast<LPOLESTR>(L"left before the call"));
    IErrorInfo* info = nullptr;
    creator->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info));
    SetErrorInfo(0, info);
    info->Release();
    creator->Release();
}

}  // namespace

PROBE_CASE(exceptions, host_refusal)
{
    return missingGroup(true);
}

PROBE_CASE(exceptions, host_refusal_without_excepinfo)
{
    return missingGroup(false);
}

PROBE_CASE(exceptions, host_refusal_of_a_put)
{
    ProbedHost host;
    IDispatch* layout = host.reach({{L"ActiveDocument"}, {L"ActiveLayout"}});
    const std::string outcome = invoke(layout, put(idOf(layout, L"PlotType"), _variant_t(99L)));
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, host_refusal_of_a_method_without_result)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    const std::string outcome = invoke(toolbar, {idOf(toolbar, L"Dock"), DISPATCH_METHOD, {_variant_t(9L)}});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, injected_failure_of_a_get)
{
    ProbedHost host;
    host.failCalls("HostMenuGroups.get_Count");
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    const std::string outcome = invoke(groups, {idOf(groups, L"Count"), DISPATCH_PROPERTYGET});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, injected_failure_of_a_put)
{
    ProbedHost host;
    host.failCalls("HostPreferencesFiles.put_SupportPath", E_ACCESSDENIED);
    IDispatch* files = host.reach({{L"Preferences"}, {L"Files"}});
    const std::string outcome = invoke(files, put(idOf(files, L"SupportPath"), _variant_t(L"D:\\Support")));
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, injected_failure_without_excepinfo)
{
    ProbedHost host;
    host.failCalls("HostMenuGroups.get_Count", E_FAIL);
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    Invocation call{idOf(groups, L"Count"), DISPATCH_PROPERTYGET};
    call.exceptionGiven = false;
    const std::string outcome = invoke(groups, std::move(call));
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, success_status_other_than_s_ok)
{
    ProbedHost host;
    sim::Fault fault;
    fault.kind = sim::FaultKind::answer;
    fault.method = "HostMenuGroups.get_Count";
    fault.status = S_FALSE;
    host.host().armFault(std::move(fault));
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    const std::string outcome = invoke(groups, {idOf(groups, L"Count"), DISPATCH_PROPERTYGET});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, success_leaves_excepinfo_alone)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    const std::string outcome = invoke(groups, {idOf(groups, L"Count"), DISPATCH_PROPERTYGET});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, dispatcher_refusal_leaves_excepinfo_alone)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    const std::string outcome =
        invoke(groups, {idOf(groups, L"Item"), DISPATCH_METHOD, {_variant_t(0L), _variant_t(1L)}});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, earlier_error_info_and_a_successful_call)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    leaveErrorInfo();
    const std::string outcome = invoke(groups, {idOf(groups, L"Count"), DISPATCH_PROPERTYGET});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, earlier_error_info_and_a_dispatcher_refusal)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    leaveErrorInfo();
    const std::string outcome = invoke(groups, {99});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, earlier_error_info_and_a_host_refusal)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    leaveErrorInfo();
    const std::string outcome =
        invoke(groups, {idOf(groups, L"Item"), kMethodOrGet, {_variant_t(L"Nothing")}});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(exceptions, failure_of_a_loaded_group)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    const std::string outcome =
        invoke(groups, {idOf(groups, L"LoadMenuFile"), DISPATCH_METHOD, {_variant_t(L"C:\\No\\Such\\Menu")}});
    return host.withReferencesLeft(outcome + errorInfoLeft());
}
