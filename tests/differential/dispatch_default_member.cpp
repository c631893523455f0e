// Default members: DISPID_VALUE called directly, and arguments beyond those a member declares,
// which the dispatcher passes on to the default member of the object the member gives, as scripts
// rely on (app.MenuGroups("ZORB"), app.Documents(0)); errors of that second call included.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// `name` on the application with `arguments` and `flags`, then the name of what it gave.
std::string onApplication(const wchar_t* name, std::vector<_variant_t> arguments, WORD flags = kMethodOrGet,
                          ResultSlot result = ResultSlot::empty)
{
    ProbedHost host;
    Invocation call{idOf(host.application(), name), flags, std::move(arguments)};
    call.result = result;
    return host.withReferencesLeft(invoke(host.application(), std::move(call)));
}

}  // namespace

PROBE_CASE(default_member, called_directly)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.reach({{L"MenuGroups"}}), {DISPID_VALUE, kMethodOrGet, {_variant_t(L"ZORB")}}));
}

PROBE_CASE(default_member, called_directly_as_method)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.reach({{L"MenuGroups"}}), {DISPID_VALUE, DISPATCH_METHOD, {_variant_t(0L)}}));
}

PROBE_CASE(default_member, called_directly_as_get)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.reach({{L"MenuGroups"}}), {DISPID_VALUE, DISPATCH_PROPERTYGET, {_variant_t(0L)}}));
}

PROBE_CASE(default_member, called_directly_without_its_argument)
{
    ProbedHost host;
    return host.withReferencesLeft(invoke(host.reach({{L"MenuGroups"}}), {DISPID_VALUE}));
}

PROBE_CASE(surplus, group_by_name)
{
    return onApplication(L"MenuGroups", {_variant_t(L"ZORB")});
}

PROBE_CASE(surplus, group_by_position)
{
    return onApplication(L"MenuGroups", {_variant_t(static_cast<short>(0))});
}

PROBE_CASE(surplus, group_as_get_only)
{
    return onApplication(L"MenuGroups", {_variant_t(0L)}, DISPATCH_PROPERTYGET);
}

PROBE_CASE(surplus, group_as_method_only)
{
    return onApplication(L"MenuGroups", {_variant_t(0L)}, DISPATCH_METHOD);
}

PROBE_CASE(surplus, document_by_position)
{
    return onApplication(L"Documents", {_variant_t(0L)});
}

PROBE_CASE(surplus, toolbar_of_a_group)
{
    ProbedHost host;
    IDispatch* group = host.reach({{L"MenuGroups"}, {L"Item", {_variant_t(L"ZORB")}}});
    return host.withReferencesLeft(
        invoke(group, {idOf(group, L"Toolbars"), kMethodOrGet, {_variant_t(L"TB_STANDARD")}}));
}

PROBE_CASE(surplus, toolbar_of_the_loaded_mx_group)
{
    ProbedHost host;
    host.reach({{L"MenuGroups"}, {L"LoadMenuFile", {_variant_t(L"C:\\Program Files\\MX\\Support\\MX")}}});
    IDispatch* group = host.reach({{L"MenuGroups"}, {L"Item", {_variant_t(L"MX")}}});
    return host.withReferencesLeft(
        invoke(group, {idOf(group, L"Toolbars"), kMethodOrGet, {_variant_t(L"TB_MX_MAIN")}}));
}

PROBE_CASE(surplus, no_such_group)
{
    return onApplication(L"MenuGroups", {_variant_t(L"NoSuchGroup")});
}

PROBE_CASE(surplus, no_such_group_without_excepinfo)
{
    ProbedHost host;
    Invocation call{idOf(host.application(), L"MenuGroups"), kMethodOrGet, {_variant_t(L"NoSuchGroup")}};
    call.exceptionGiven = false;
    const std::string outcome = invoke(host.application(), std::move(call));
    return host.withReferencesLeft(outcome + errorInfoLeft());
}

PROBE_CASE(surplus, group_position_out_of_range)
{
    return onApplication(L"MenuGroups", {_variant_t(99L)});
}

PROBE_CASE(surplus, group_by_a_mismatched_index)
{
    return onApplication(L"MenuGroups", {variantArray({_variant_t(0L)})});
}

PROBE_CASE(surplus, two_beyond_the_declared)
{
    return onApplication(L"MenuGroups", {_variant_t(0L), _variant_t(1L)});
}

PROBE_CASE(surplus, without_a_result)
{
    return onApplication(L"MenuGroups", {_variant_t(L"ZORB")}, kMethodOrGet, ResultSlot::none);
}

PROBE_CASE(surplus, result_filled_with_text_beforehand)
{
    return onApplication(L"MenuGroups", {_variant_t(L"ZORB")}, kMethodOrGet, ResultSlot::text);
}

PROBE_CASE(surplus, result_filled_with_an_object_beforehand)
{
    return onApplication(L"MenuGroups", {_variant_t(L"ZORB")}, kMethodOrGet, ResultSlot::object);
}

PROBE_CASE(surplus, to_an_object_without_a_default_member)
{
    return onApplication(L"Preferences", {_variant_t(0L)});
}

PROBE_CASE(surplus, to_a_text)
{
    ProbedHost host;
    IDispatch* files = host.reach({{L"Preferences"}, {L"Files"}});
    return host.withReferencesLeft(
        invoke(files, {idOf(files, L"SupportPath"), kMethodOrGet, {_variant_t(0L)}}));
}

PROBE_CASE(surplus, to_a_number)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(invoke(groups, {idOf(groups, L"Count"), kMethodOrGet, {_variant_t(0L)}}));
}

PROBE_CASE(surplus, named_argument_beyond_the_declared)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.application(),
               {idOf(host.application(), L"MenuGroups"), kMethodOrGet, {}, {{0, _variant_t(L"ZORB")}}}));
}

PROBE_CASE(surplus, to_a_method_with_an_object_result)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    return host.withReferencesLeft(
        invoke(groups, {idOf(groups, L"Item"), kMethodOrGet, {_variant_t(L"ZORB"), _variant_t(0L)}}));
}

PROBE_CASE(surplus, to_a_method_without_a_result)
{
    ProbedHost host;
    IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
    const std::string outcome =
        invoke(toolbar, {idOf(toolbar, L"Dock"), DISPATCH_METHOD, {_variant_t(2L), _variant_t(3L)}});
    return host.withReferencesLeft(outcome + " then" + readProperty(toolbar, L"DockStatus"));
}

PROBE_CASE(surplus, to_a_method_without_parameters)
{
    ProbedHost host;
    IDispatch* document = host.reach({{L"ActiveDocument"}});
    return host.withReferencesLeft(
        invoke(document, {idOf(document, L"Activate"), DISPATCH_METHOD, {_variant_t(1L)}}));
}

PROBE_CASE(surplus, failing_first_member)
{
    ProbedHost host;
    host.failCalls("HostApplication.get_MenuGroups");
    return host.withReferencesLeft(invoke(
        host.application(), {idOf(host.application(), L"MenuGroups"), kMethodOrGet, {_variant_t(0L)}}));
}

PROBE_CASE(surplus, failing_default_member)
{
    ProbedHost host;
    host.failCalls("HostMenuGroups.Item");
    return host.withReferencesLeft(invoke(
        host.application(), {idOf(host.application(), L"MenuGroups"), kMethodOrGet, {_variant_t(0L)}}));
}
