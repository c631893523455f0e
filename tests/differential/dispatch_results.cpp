// What a call does to the caller's result variant: the value a member gives, of each type; no
// place for it (pVarResult null); and a variant the caller filled with a text or an object
// beforehand, before calls that succeed, fail, give nothing or are refused by the dispatcher.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

IDispatch* toolbarOf(ProbedHost& host)
{
    return host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
}

std::string groupItem(_variant_t index, ResultSlot result)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    Invocation call{idOf(groups, L"Item"), kMethodOrGet, {std::move(index)}};
    call.result = result;
    return host.withReferencesLeft(invoke(groups, std::move(call)));
}

std::string groupCount(ResultSlot result)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    Invocation call{idOf(groups, L"Count"), kMethodOrGet};
    call.result = result;
    return host.withReferencesLeft(invoke(groups, std::move(call)));
}

std::string documentActivated(ResultSlot result)
{
    ProbedHost host;
    IDispatch* document = host.reach({{L"ActiveDocument"}});
    Invocation call{idOf(document, L"Activate"), DISPATCH_METHOD};
    call.result = result;
    return host.withReferencesLeft(invoke(document, std::move(call)));
}

std::string toolbarHidden(ResultSlot result)
{
    ProbedHost host;
    IDispatch* toolbar = toolbarOf(host);
    Invocation call = put(idOf(toolbar, L"Visible"), _variant_t(false));
    call.result = result;
    return host.withReferencesLeft(invoke(toolbar, std::move(call)));
}

std::string plotTypeRefused(ResultSlot result)
{
    ProbedHost host;
    IDispatch* layout = host.reach({{L"ActiveDocument"}, {L"ActiveLayout"}});
    Invocation call = put(idOf(layout, L"PlotType"), _variant_t(99L));
    call.result = result;
    return host.withReferencesLeft(invoke(layout, std::move(call)));
}

std::string floatedWithTooFew(ResultSlot result)
{
    ProbedHost host;
    IDispatch* toolbar = toolbarOf(host);
    Invocation call{idOf(toolbar, L"Float"), DISPATCH_METHOD, {_variant_t(1L)}};
    call.result = result;
    return host.withReferencesLeft(invoke(toolbar, std::move(call)));
}

std::string floatedWithAMismatch(ResultSlot result)
{
    ProbedHost host;
    IDispatch* toolbar = toolbarOf(host);
    Invocation call{
        idOf(toolbar, L"Float"), DISPATCH_METHOD, {_variant_t(L"top"), _variant_t(1L), _variant_t(1L)}};
    call.result = result;
    return host.withReferencesLeft(invoke(toolbar, std::move(call)));
}

std::string unknownMember(ResultSlot result)
{
    ProbedHost host;
    Invocation call{99};
    call.result = result;
    return host.withReferencesLeft(invoke(host.application(), std::move(call)));
}

}  // namespace

PROBE_CASE(results, number)
{
    return groupCount(ResultSlot::empty);
}

PROBE_CASE(results, text)
{
    ProbedHost host;
    return host.withReferencesLeft(
        invoke(host.reach({{L"MenuGroups"}, {L"Item", {0L}}}), {1, DISPATCH_PROPERTYGET}));
}

PROBE_CASE(results, boolean)
{
    ProbedHost host;
    return host.withReferencesLeft(readProperty(toolbarOf(host), L"Visible"));
}

PROBE_CASE(results, enumeration)
{
    ProbedHost host;
    return host.withReferencesLeft(
        readProperty(host.reach({{L"ActiveDocument"}, {L"ActiveLayout"}}), L"PlotType"));
}

PROBE_CASE(results, boolean_of_a_method_with_an_optional_parameter)
{
    ProbedHost host;
    IDispatch* plot = host.reach({{L"ActiveDocument"}, {L"Plot"}});
    return host.withReferencesLeft(invoke(plot, {idOf(plot, L"PlotToDevice"), DISPATCH_METHOD}));
}

PROBE_CASE(results, object)
{
    return groupItem(_variant_t(0L), ResultSlot::empty);
}

PROBE_CASE(results, null_object_the_host_gave)
{
    ProbedHost host;
    sim::Fault fault;
    fault.kind = sim::FaultKind::nullObject;
    fault.method = "HostApplication.get_MenuGroups";
    host.host().armFault(std::move(fault));
    return host.withReferencesLeft(
        invoke(host.application(), {idOf(host.application(), L"MenuGroups"), kMethodOrGet}));
}

PROBE_CASE(results, number_without_a_place_for_it)
{
    return groupCount(ResultSlot::none);
}

PROBE_CASE(results, object_without_a_place_for_it)
{
    return groupItem(_variant_t(0L), ResultSlot::none);
}

PROBE_CASE(results, failure_without_a_place_for_it)
{
    return groupItem(_variant_t(L"NoSuchGroup"), ResultSlot::none);
}

PROBE_CASE(results, text_before_a_number)
{
    return groupCount(ResultSlot::text);
}

PROBE_CASE(results, object_before_a_number)
{
    return groupCount(ResultSlot::object);
}

PROBE_CASE(results, text_before_an_object)
{
    return groupItem(_variant_t(0L), ResultSlot::text);
}

PROBE_CASE(results, object_before_an_object)
{
    return groupItem(_variant_t(0L), ResultSlot::object);
}

PROBE_CASE(results, text_before_a_failing_get)
{
    return groupItem(_variant_t(L"NoSuchGroup"), ResultSlot::text);
}

PROBE_CASE(results, object_before_a_failing_get)
{
    return groupItem(_variant_t(L"NoSuchGroup"), ResultSlot::object);
}

PROBE_CASE(results, text_before_a_call_that_gives_nothing)
{
    return documentActivated(ResultSlot::text);
}

PROBE_CASE(results, object_before_a_call_that_gives_nothing)
{
    return documentActivated(ResultSlot::object);
}

PROBE_CASE(results, text_before_a_put)
{
    return toolbarHidden(ResultSlot::text);
}

PROBE_CASE(results, object_before_a_put)
{
    return toolbarHidden(ResultSlot::object);
}

PROBE_CASE(results, text_before_a_failing_put)
{
    return plotTypeRefused(ResultSlot::text);
}

PROBE_CASE(results, object_before_a_failing_put)
{
    return plotTypeRefused(ResultSlot::object);
}

PROBE_CASE(results, text_before_a_wrong_argument_count)
{
    return floatedWithTooFew(ResultSlot::text);
}

PROBE_CASE(results, object_before_a_wrong_argument_count)
{
    return floatedWithTooFew(ResultSlot::object);
}

PROBE_CASE(results, object_before_a_type_mismatch)
{
    return floatedWithAMismatch(ResultSlot::object);
}

PROBE_CASE(results, object_before_an_unknown_member)
{
    return unknownMember(ResultSlot::object);
}

PROBE_CASE(results, text_before_an_unknown_member)
{
    return unknownMember(ResultSlot::text);
}
