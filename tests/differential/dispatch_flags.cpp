// Which member a call reaches: the ways of calling (DISPATCH_* flags, alone, together, none or
// unknown), DISPIDs that name no member, and the reserved interface id.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Count (a property get) on the menu groups, called with `flags` and no arguments.
std::string countCalled(WORD flags)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(invoke(groups, {idOf(groups, L"Count"), flags}));
}

// Item (a method) on the menu groups, called with `flags` and the index 0.
std::string itemCalled(WORD flags)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(invoke(groups, {idOf(groups, L"Item"), flags, {_variant_t(0L)}}));
}

// A toolbar's Visible (a property with get and put), called with `flags` and the value named as a
// put's; then the visibility it has.
std::string visibleCalled(WORD flags)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    Invocation call = put(idOf(toolbar, L"Visible"), _variant_t(false));
    call.flags = flags;
    const std::string outcome = invoke(toolbar, std::move(call));
    return host.withReferencesLeft(outcome + " then" + readProperty(toolbar, L"Visible"));
}

// Unload (a method without a result) on the first menu group, called with `flags`.
std::string unloadCalled(WORD flags)
{
    ProbedHost host;
    IDispatch* group = host.reach({{L"MenuGroups"}, {L"Item", {0L}}});
    const std::string outcome = invoke(group, {idOf(group, L"Unload"), flags});
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(outcome + " then" + readProperty(groups, L"Count"));
}

}  // namespace

PROBE_CASE(flags, property_get_as_get)
{
    return countCalled(DISPATCH_PROPERTYGET);
}

PROBE_CASE(flags, property_get_as_method_or_get)
{
    return countCalled(kMethodOrGet);
}

PROBE_CASE(flags, property_get_as_method)
{
    return countCalled(DISPATCH_METHOD);
}

PROBE_CASE(flags, property_get_as_put)
{
    return countCalled(DISPATCH_PROPERTYPUT);
}

PROBE_CASE(flags, property_get_with_no_flag)
{
    return countCalled(0);
}

PROBE_CASE(flags, property_get_with_unknown_flags_only)
{
    return countCalled(0x10 | 0x100);
}

PROBE_CASE(flags, property_get_with_an_unknown_flag_besides)
{
    return countCalled(DISPATCH_PROPERTYGET | 0x10);
}

PROBE_CASE(flags, method_as_method)
{
    return itemCalled(DISPATCH_METHOD);
}

PROBE_CASE(flags, method_as_method_or_get)
{
    return itemCalled(kMethodOrGet);
}

PROBE_CASE(flags, method_as_get)
{
    return itemCalled(DISPATCH_PROPERTYGET);
}

PROBE_CASE(flags, method_as_put)
{
    return itemCalled(DISPATCH_PROPERTYPUT);
}

PROBE_CASE(flags, method_as_putref)
{
    return itemCalled(DISPATCH_PROPERTYPUTREF);
}

PROBE_CASE(flags, method_without_result_as_method)
{
    return unloadCalled(DISPATCH_METHOD);
}

PROBE_CASE(flags, method_without_result_as_get)
{
    return unloadCalled(DISPATCH_PROPERTYGET);
}

PROBE_CASE(flags, method_without_result_with_no_flag)
{
    return unloadCalled(0);
}

PROBE_CASE(flags, property_put_as_put)
{
    return visibleCalled(DISPATCH_PROPERTYPUT);
}

PROBE_CASE(flags, property_put_as_putref)
{
    return visibleCalled(DISPATCH_PROPERTYPUTREF);
}

PROBE_CASE(flags, property_put_as_put_or_putref)
{
    return visibleCalled(DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
}

PROBE_CASE(flags, property_put_as_get_or_put)
{
    return visibleCalled(DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT);
}

PROBE_CASE(flags, property_put_as_method)
{
    return visibleCalled(DISPATCH_METHOD);
}

PROBE_CASE(flags, property_put_with_no_flag)
{
    return visibleCalled(0);
}

PROBE_CASE(flags, read_only_property_put)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    return host.withReferencesLeft(invoke(toolbar, put(idOf(toolbar, L"Name"), _variant_t(L"Renamed"))));
}

PROBE_CASE(flags, read_only_property_put_of_two_values)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    Invocation call = put(idOf(toolbar, L"Name"), _variant_t(L"Renamed"));
    call.positional.emplace_back(L"extra");
    return host.withReferencesLeft(invoke(toolbar, std::move(call)));
}

PROBE_CASE(flags, read_only_property_putref)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    Invocation call = put(idOf(toolbar, L"Name"), _variant_t(L"Renamed"));
    call.flags = DISPATCH_PROPERTYPUTREF;
    return host.withReferencesLeft(invoke(toolbar, std::move(call)));
}

PROBE_CASE(flags, write_only_property_get)
{
    ProbedHost host;
    IDispatch* plot = host.reach({{L"ActiveDocument"}, {L"Plot"}});
    return host.withReferencesLeft(invoke(plot, {idOf(plot, L"NumberOfCopies"), DISPATCH_PROPERTYGET}));
}

PROBE_CASE(flags, write_only_property_put)
{
    ProbedHost host;
    IDispatch* plot = host.reach({{L"ActiveDocument"}, {L"Plot"}});
    return host.withReferencesLeft(invoke(plot, put(idOf(plot, L"NumberOfCopies"), _variant_t(3L))));
}

PROBE_CASE(dispids, unknown_dispid)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(invoke(groups, {99}));
}

PROBE_CASE(dispids, dispid_unknown)
{
    ProbedHost host;
    return host.withReferencesLeft(invoke(host.application(), {DISPID_UNKNOWN}));
}

PROBE_CASE(dispids, dispid_propertyput_as_member)
{
    ProbedHost host;
    return host.withReferencesLeft(invoke(host.application(), {DISPID_PROPERTYPUT}));
}

PROBE_CASE(dispids, negative_dispid)
{
    ProbedHost host;
    return host.withReferencesLeft(invoke(host.application(), {-12345}));
}

PROBE_CASE(dispids, inherited_query_interface)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.application(), {idOf(host.application(), L"QueryInterface"), DISPATCH_METHOD}));
}

PROBE_CASE(dispids, inherited_get_type_info_count)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.application(), {idOf(host.application(), L"GetTypeInfoCount"), DISPATCH_METHOD}));
}

PROBE_CASE(dispids, default_member_of_an_object_without_one)
{
    ProbedHost host;
    return host.withReferencesLeft(invoke(host.application(), {DISPID_VALUE}));
}

PROBE_CASE(dispids, interface_id_not_null)
{
    ProbedHost host;
    Invocation call{idOf(host.application(), L"MenuGroups")};
    call.iid = &IID_IDispatch;
    return host.withReferencesLeft(invoke(host.application(), std::move(call)));
}

PROBE_CASE(dispids, interface_id_not_null_on_an_unknown_dispid)
{
    ProbedHost host;
    Invocation call{99};
    call.iid = &IID_IUnknown;
    return host.withReferencesLeft(invoke(host.application(), std::move(call)));
}

PROBE_CASE(dispids, null_dispparams)
{
    ProbedHost host;
    VARIANT result;
    VariantInit(&result);
    const HRESULT status =
        host.application()->Invoke(idOf(host.application(), L"MenuGroups"), IID_NULL, LOCALE_USER_DEFAULT,
                                   DISPATCH_PROPERTYGET, nullptr, &result, nullptr, nullptr);
    const std::string outcome = probe::status(status) + " result " + probe::value(result);
    VariantClear(&result);
    return host.withReferencesLeft(outcome);
}
