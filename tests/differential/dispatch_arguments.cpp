// How arguments reach a member's parameters: positional and named ones, a put's value, named
// arguments that are wrong (unknown, repeated, more than given), optional parameters left out or
// passed as missing, by-reference arguments, and which argument puArgErr names when one is wrong.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

// A toolbar of the default host: Float(top, left, rows) takes three longs; Top, Left and
// FloatingRows read them back.
IDispatch* toolbarOf(ProbedHost& host)
{
    return host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
}

std::string placementOf(IDispatch* toolbar)
{
    std::string placement = " then";
    for (const wchar_t* name : {L"Top", L"Left", L"FloatingRows"})
        placement += readProperty(toolbar, name);
    return placement;
}

std::string floated(Invocation call)
{
    ProbedHost host;
    IDispatch* toolbar = toolbarOf(host);
    call.member = idOf(toolbar, L"Float");
    const std::string outcome = invoke(toolbar, std::move(call));
    return host.withReferencesLeft(outcome + placementOf(toolbar));
}

// The support path as it is after `call` on the preferences' files.
std::string supportPathAfter(Invocation call)
{
    ProbedHost host;
    IDispatch* files = host.reach({{L"Preferences"}, {L"Files"}});
    call.member = idOf(files, L"SupportPath");
    const std::string outcome = invoke(files, std::move(call));
    return host.withReferencesLeft(outcome + " then" + readProperty(files, L"SupportPath"));
}

// LoadMenuFile(menuFile, [baseMenu]) with `call`'s arguments, and the groups there are after.
std::string loadedMenu(Invocation call)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    call.member = idOf(groups, L"LoadMenuFile");
    const std::string outcome = invoke(groups, std::move(call));
    return host.withReferencesLeft(outcome + " then" + readProperty(groups, L"Count"));
}

const wchar_t* const kMxMenu = L"C:\\Program Files\\MX\\Support\\MX";

}  // namespace

PROBE_CASE(arguments, positional_in_order)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(120L), _variant_t(40L), _variant_t(2L)}});
}

PROBE_CASE(arguments, too_few_positional)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(120L)}});
}

PROBE_CASE(arguments, none_where_three_are_needed)
{
    return floated({0, DISPATCH_METHOD});
}

PROBE_CASE(arguments, one_too_many_positional)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(120L), _variant_t(40L), _variant_t(2L), _variant_t(7L)}});
}

PROBE_CASE(arguments, all_named_out_of_order)
{
    return floated(
        {0, DISPATCH_METHOD, {}, {{2, _variant_t(3L)}, {0, _variant_t(10L)}, {1, _variant_t(20L)}}});
}

PROBE_CASE(arguments, positional_then_named)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L)}, {{2, _variant_t(4L)}, {1, _variant_t(22L)}}});
}

PROBE_CASE(arguments, named_for_a_positional_one_too)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L), _variant_t(22L)}, {{0, _variant_t(5L)}}});
}

PROBE_CASE(arguments, named_with_an_unknown_id)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L), _variant_t(22L)}, {{7, _variant_t(5L)}}});
}

PROBE_CASE(arguments, named_with_a_negative_id)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L), _variant_t(22L)}, {{-5, _variant_t(5L)}}});
}

PROBE_CASE(arguments, named_with_a_repeated_id)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L)}, {{1, _variant_t(22L)}, {1, _variant_t(33L)}}});
}

PROBE_CASE(arguments, named_put_id_on_a_method)
{
    return floated(
        {0, DISPATCH_METHOD, {_variant_t(11L), _variant_t(22L)}, {{DISPID_PROPERTYPUT, _variant_t(6L)}}});
}

PROBE_CASE(arguments, more_named_than_given)
{
    Invocation call{
        0, DISPATCH_METHOD, {}, {{0, _variant_t(10L)}, {1, _variant_t(20L)}, {2, _variant_t(3L)}}};
    call.tamper = [](DISPPARAMS& parameters) { parameters.cArgs = 2; };
    return floated(std::move(call));
}

PROBE_CASE(arguments, put_named_as_clients_do)
{
    return supportPathAfter(put(0, _variant_t(L"D:\\Support")));
}

PROBE_CASE(arguments, put_without_the_named_value)
{
    return supportPathAfter({0, DISPATCH_PROPERTYPUT, {_variant_t(L"D:\\Support")}});
}

PROBE_CASE(arguments, put_with_the_value_named_by_its_position)
{
    return supportPathAfter({0, DISPATCH_PROPERTYPUT, {}, {{0, _variant_t(L"D:\\Support")}}});
}

PROBE_CASE(arguments, put_with_another_name_first)
{
    return supportPathAfter(
        {0,
         DISPATCH_PROPERTYPUT,
         {},
         {{0, _variant_t(L"D:\\Other")}, {DISPID_PROPERTYPUT, _variant_t(L"D:\\Support")}}});
}

PROBE_CASE(arguments, put_with_the_value_named_twice)
{
    return supportPathAfter(
        {0,
         DISPATCH_PROPERTYPUT,
         {},
         {{DISPID_PROPERTYPUT, _variant_t(L"D:\\First")}, {DISPID_PROPERTYPUT, _variant_t(L"D:\\Second")}}});
}

PROBE_CASE(arguments, put_with_a_positional_one_besides)
{
    Invocation call = put(0, _variant_t(L"D:\\Support"));
    call.positional.emplace_back(L"D:\\Extra");
    return supportPathAfter(std::move(call));
}

PROBE_CASE(arguments, put_of_no_value)
{
    Invocation call = put(0, _variant_t(L"D:\\Support"));
    call.tamper = [](DISPPARAMS& parameters) {
        parameters.cArgs = 0;
        parameters.cNamedArgs = 0;
    };
    return supportPathAfter(std::move(call));
}

PROBE_CASE(arguments, get_with_a_named_argument)
{
    return supportPathAfter({0, DISPATCH_PROPERTYGET, {}, {{0, _variant_t(L"D:\\Support")}}});
}

PROBE_CASE(optional, left_out)
{
    return loadedMenu({0, DISPATCH_METHOD, {_variant_t(kMxMenu)}});
}

PROBE_CASE(optional, passed_as_missing)
{
    return loadedMenu({0, DISPATCH_METHOD, {_variant_t(kMxMenu), missing()}});
}

PROBE_CASE(optional, passed_empty)
{
    return loadedMenu({0, DISPATCH_METHOD, {_variant_t(kMxMenu), _variant_t()}});
}

PROBE_CASE(optional, passed_by_name)
{
    return loadedMenu({0, DISPATCH_METHOD, {_variant_t(kMxMenu)}, {{1, missing()}}});
}

PROBE_CASE(optional, required_one_passed_by_name_alone)
{
    return loadedMenu({0, DISPATCH_METHOD, {}, {{0, _variant_t(kMxMenu)}}});
}

PROBE_CASE(optional, required_one_left_out)
{
    return loadedMenu({0, DISPATCH_METHOD, {}, {{1, missing()}}});
}

PROBE_CASE(optional, required_one_passed_as_missing)
{
    return loadedMenu({0, DISPATCH_METHOD, {missing()}});
}

PROBE_CASE(optional, both_of_two_left_out)
{
    ProbedHost host;
    IDispatch* document = host.reach({{L"ActiveDocument"}});
    return host.withReferencesLeft(invoke(document, {idOf(document, L"Close"), DISPATCH_METHOD}));
}

PROBE_CASE(optional, first_of_two_left_out_by_name)
{
    ProbedHost host;
    IDispatch* document = host.reach({{L"ActiveDocument"}});
    return host.withReferencesLeft(invoke(
        document, {idOf(document, L"Close"), DISPATCH_METHOD, {}, {{1, _variant_t(L"C:\\Copy.dwg")}}}));
}

PROBE_CASE(optional, missing_where_a_long_is_required)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(11L), missing(), _variant_t(2L)}});
}

PROBE_CASE(by_reference, long_to_a_long)
{
    LONG top = 77;
    return floated({0, DISPATCH_METHOD, {reference(VT_I4, &top), _variant_t(40L), _variant_t(2L)}});
}

PROBE_CASE(by_reference, short_to_a_long)
{
    SHORT left = 12;
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), reference(VT_I2, &left), _variant_t(2L)}});
}

PROBE_CASE(by_reference, variant_to_a_long)
{
    _variant_t rows(3L);
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(2L), reference(VT_VARIANT, &rows)}});
}

PROBE_CASE(by_reference, text_to_a_text)
{
    _bstr_t path(L"E:\\ByReference");
    BSTR raw = path;
    return supportPathAfter({0, DISPATCH_PROPERTYPUT, {}, {{DISPID_PROPERTYPUT, reference(VT_BSTR, &raw)}}});
}

PROBE_CASE(by_reference, variant_to_a_variant)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    _variant_t index(0L);
    return host.withReferencesLeft(
        invoke(groups, {idOf(groups, L"Item"), DISPATCH_METHOD, {reference(VT_VARIANT, &index)}}));
}

PROBE_CASE(by_reference, text_to_a_variant)
{
    ProbedHost host;
    IDispatch* groups = host.reach({{L"MenuGroups"}});
    _bstr_t name(L"ZORB");
    BSTR raw = name;
    return host.withReferencesLeft(
        invoke(groups, {idOf(groups, L"Item"), DISPATCH_METHOD, {reference(VT_BSTR, &raw)}}));
}

PROBE_CASE(by_reference, boolean_to_a_boolean)
{
    ProbedHost host;
    IDispatch* toolbar = toolbarOf(host);
    VARIANT_BOOL hidden = VARIANT_FALSE;
    const std::string outcome = invoke(toolbar, put(idOf(toolbar, L"Visible"), reference(VT_BOOL, &hidden)));
    return host.withReferencesLeft(outcome + " then" + readProperty(toolbar, L"Visible"));
}

PROBE_CASE(argument_error, first_of_three_mismatched)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(L"top"), _variant_t(40L), _variant_t(2L)}});
}

PROBE_CASE(argument_error, middle_of_three_mismatched)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(L"left"), _variant_t(2L)}});
}

PROBE_CASE(argument_error, last_of_three_mismatched)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(40L), _variant_t(L"rows")}});
}

PROBE_CASE(argument_error, two_of_three_mismatched)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(L"left"), _variant_t(L"rows")}});
}

PROBE_CASE(argument_error, overflow)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(1e12), _variant_t(2L)}});
}

PROBE_CASE(argument_error, overflow_after_a_mismatch)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(L"top"), _variant_t(1e12), _variant_t(2L)}});
}

PROBE_CASE(argument_error, mismatch_in_a_named_argument)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L)}, {{2, _variant_t(L"rows")}, {1, _variant_t(2L)}}});
}

PROBE_CASE(argument_error, mismatch_without_a_place_to_say_it)
{
    Invocation call{0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(L"left"), _variant_t(2L)}};
    call.argumentErrorGiven = false;
    return floated(std::move(call));
}

PROBE_CASE(argument_error, mismatch_in_a_put)
{
    return supportPathAfter(put(0, variantArray({_variant_t(1L)})));
}

PROBE_CASE(argument_error, missing_argument)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(1L), _variant_t(2L)}});
}

PROBE_CASE(argument_error, mismatch_with_too_few)
{
    return floated({0, DISPATCH_METHOD, {_variant_t(L"top"), _variant_t(2L)}});
}
