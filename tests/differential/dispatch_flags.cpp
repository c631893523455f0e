// Which member a call reaches: the ways of calling (DISPATCH_* flags, alone, together, none or
// unknown), DISPIDs that name no member, and the reserved interface id.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
const WORD kPutOrPutRef = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

Invocation withFlags(WORD flags, Invocation call)
{
    call.flags = flags;
    return call;
}

// A toolbar's Visible (a property with get and put) called with `flags`, the value named as a put's.
Invocation hidden(WORD flags)
{
    return withFlags(flags, put(L"Visible", false));
}

Invocation withInterface(const IID& iid, Invocation call)
{
    call.iid = &iid;
    return call;
}

Invocation renamedBesides(Invocation call)
{
    call.positional.emplace_back(L"extra");
    return call;
}

// Count is a property get, Item a method, Unload a method without result.
[[maybe_unused]] const bool kFlags = addCases(
    "flags",
    {
        {"property_get_as_get", Subject::groups, {L"Count", DISPATCH_PROPERTYGET}},
        {"property_get_as_method_or_get", Subject::groups, {L"Count", kMethodOrGet}},
        {"property_get_as_method", Subject::groups, {L"Count", DISPATCH_METHOD}},
        {"property_get_as_put", Subject::groups, {L"Count", DISPATCH_PROPERTYPUT}},
        {"property_get_with_no_flag", Subject::groups, {L"Count", 0}},
        {"property_get_with_unknown_flags_only", Subject::groups, {L"Count", 0x10 | 0x100}},
        {"property_get_with_an_unknown_flag_besides",
         Subject::groups,
         {L"Count", DISPATCH_PROPERTYGET | 0x10}},
        {"method_as_method", Subject::groups, {L"Item", DISPATCH_METHOD, {0L}}},
        {"method_as_method_or_get", Subject::groups, {L"Item", kMethodOrGet, {0L}}},
        {"method_as_get", Subject::groups, {L"Item", DISPATCH_PROPERTYGET, {0L}}},
        {"method_as_put", Subject::groups, {L"Item", DISPATCH_PROPERTYPUT, {0L}}},
        {"method_as_putref", Subject::groups, {L"Item", DISPATCH_PROPERTYPUTREF, {0L}}},
        {"method_without_result_as_method", Subject::group, {L"Unload", DISPATCH_METHOD}, {L"Menus"}},
        {"method_without_result_as_get", Subject::group, {L"Unload", DISPATCH_PROPERTYGET}, {L"Menus"}},
        {"method_without_result_with_no_flag", Subject::group, {L"Unload", 0}, {L"Menus"}},
        {"property_put_as_put", Subject::toolbar, hidden(DISPATCH_PROPERTYPUT), {L"Visible"}},
        {"property_put_as_putref", Subject::toolbar, hidden(DISPATCH_PROPERTYPUTREF), {L"Visible"}},
        {"property_put_as_put_or_putref", Subject::toolbar, hidden(kPutOrPutRef), {L"Visible"}},
        {"property_put_as_get_or_put",
         Subject::toolbar,
         hidden(DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT),
         {L"Visible"}},
        {"property_put_as_method", Subject::toolbar, hidden(DISPATCH_METHOD), {L"Visible"}},
        {"property_put_with_no_flag", Subject::toolbar, hidden(0), {L"Visible"}},
        {"read_only_property_put", Subject::toolbar, put(L"Name", L"Renamed")},
        {"read_only_property_put_of_two_values", Subject::toolbar, renamedBesides(put(L"Name", L"Renamed"))},
        {"read_only_property_putref", Subject::toolbar,
         withFlags(DISPATCH_PROPERTYPUTREF, put(L"Name", L"Renamed"))},
        {"write_only_property_get", Subject::plot, {L"NumberOfCopies", DISPATCH_PROPERTYGET}},
        {"write_only_property_put", Subject::plot, put(L"NumberOfCopies", 3L)},
    });

[[maybe_unused]] const bool kDispids = addCases(
    "dispids",
    {
        {"unknown_dispid", Subject::groups, {99}},
        {"dispid_unknown", Subject::application, {DISPID_UNKNOWN}},
        {"dispid_propertyput_as_member", Subject::application, {DISPID_PROPERTYPUT}},
        {"negative_dispid", Subject::application, {-12345}},
        {"inherited_query_interface", Subject::application, {L"QueryInterface", DISPATCH_METHOD}},
        {"inherited_get_type_info_count", Subject::application, {L"GetTypeInfoCount", DISPATCH_METHOD}},
        {"default_member_of_an_object_without_one", Subject::application, {DISPID_VALUE}},
        {"interface_id_not_null", Subject::application, withInterface(IID_IDispatch, {L"MenuGroups"})},
        {"interface_id_not_null_on_an_unknown_dispid", Subject::application,
         withInterface(IID_IUnknown, {99})},
    });

}  // namespace

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
