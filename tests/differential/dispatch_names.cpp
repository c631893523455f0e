// GetIDsOfNames on the host's objects: members and their parameters by name, in any case, the
// names every dual interface inherits, and names or arrays that are not there.
#include "dispatch_calls.h"

#include <vector>

using namespace dispatch_probe;

namespace {

// The status and every id GetIDsOfNames gave for `names` on `object`.
std::string idsOf(IDispatch* object, std::vector<const wchar_t*> names, const IID& iid = IID_NULL)
{
    std::vector<LPOLESTR> asked;
    for (const wchar_t* name : names)
        asked.push_back(const_cast<LPOLESTR>(name));
    std::vector<DISPID> ids(names.size() + 1, 0x5A5A);
    const HRESULT status = object->GetIDsOfNames(iid, asked.data(), static_cast<UINT>(asked.size()),
                                                 LOCALE_USER_DEFAULT, ids.data());
    std::string outcome = probe::status(status) + " ids";
    for (DISPID id : ids)
        outcome += id == 0x5A5A ? std::string(" kept") : " " + std::to_string(id);
    return outcome;
}

std::string namesOnApplication(std::vector<const wchar_t*> names)
{
    ProbedHost host;
    return host.withReferencesLeft(idsOf(host.application(), std::move(names)));
}

std::string namesOnGroups(std::vector<const wchar_t*> names)
{
    ProbedHost host;
    return host.withReferencesLeft(idsOf(host.reach({{L"MenuGroups"}}), std::move(names)));
}

}  // namespace

PROBE_CASE(names, member_as_declared)
{
    return namesOnApplication({L"MenuGroups"});
}

PROBE_CASE(names, member_in_lower_case)
{
    return namesOnApplication({L"menugroups"});
}

PROBE_CASE(names, member_in_upper_case)
{
    return namesOnApplication({L"MENUGROUPS"});
}

PROBE_CASE(names, default_member_by_name)
{
    return namesOnGroups({L"item"});
}

PROBE_CASE(names, property_with_get_and_put)
{
    ProbedHost host;
    return host.withReferencesLeft(idsOf(host.reach({{L"Preferences"}, {L"Files"}}), {L"supportPATH"}));
}

PROBE_CASE(names, unknown_member)
{
    return namesOnGroups({L"Reload"});
}

PROBE_CASE(names, empty_name)
{
    return namesOnGroups({L""});
}

PROBE_CASE(names, name_with_trailing_space)
{
    return namesOnGroups({L"Count "});
}

PROBE_CASE(names, member_of_another_interface)
{
    return namesOnApplication({L"Toolbars"});
}

PROBE_CASE(names, member_and_its_parameters)
{
    return namesOnGroups({L"LoadMenuFile", L"menuFile", L"baseMenu"});
}

PROBE_CASE(names, parameters_in_another_order_and_case)
{
    return namesOnGroups({L"loadmenufile", L"BASEMENU", L"MenuFile"});
}

PROBE_CASE(names, unknown_parameter)
{
    return namesOnGroups({L"LoadMenuFile", L"menuFile", L"fileName"});
}

PROBE_CASE(names, unknown_parameter_first)
{
    return namesOnGroups({L"LoadMenuFile", L"fileName", L"baseMenu"});
}

PROBE_CASE(names, parameter_of_another_member)
{
    return namesOnGroups({L"Item", L"menuFile"});
}

PROBE_CASE(names, result_parameter)
{
    return namesOnGroups({L"Item", L"group"});
}

PROBE_CASE(names, parameter_of_a_property_put)
{
    ProbedHost host;
    return host.withReferencesLeft(
        idsOf(host.reach({{L"Preferences"}, {L"Files"}}), {L"SupportPath", L"path"}));
}

PROBE_CASE(names, parameters_of_an_unknown_member)
{
    return namesOnGroups({L"Reload", L"menuFile"});
}

PROBE_CASE(names, member_name_twice)
{
    return namesOnGroups({L"LoadMenuFile", L"LoadMenuFile"});
}

PROBE_CASE(names, same_parameter_twice)
{
    return namesOnGroups({L"LoadMenuFile", L"menuFile", L"menuFile"});
}

PROBE_CASE(names, inherited_query_interface)
{
    return namesOnApplication({L"QueryInterface"});
}

PROBE_CASE(names, inherited_add_ref_and_release)
{
    const std::string addRef = namesOnApplication({L"AddRef"});
    return addRef + " /" + namesOnApplication({L"release"});
}

PROBE_CASE(names, inherited_dispatch_members)
{
    std::string outcome;
    for (const wchar_t* name : {L"GetTypeInfoCount", L"GetTypeInfo", L"GetIDsOfNames", L"INVOKE"})
        outcome += (outcome.empty() ? "" : " /") + namesOnApplication({name});
    return outcome;
}

PROBE_CASE(names, inherited_member_with_its_parameters)
{
    return namesOnApplication({L"QueryInterface", L"riid", L"ppvObj"});
}

PROBE_CASE(names, parameters_of_every_inherited_dispatch_member)
{
    std::string outcome = namesOnApplication({L"GetTypeInfoCount", L"pctinfo"});
    outcome += " /" + namesOnApplication({L"GetTypeInfo", L"itinfo", L"lcid", L"pptinfo"});
    outcome +=
        " /" + namesOnApplication({L"GetIDsOfNames", L"riid", L"rgszNames", L"cNames", L"lcid", L"rgdispid"});
    outcome += " /" + namesOnApplication({L"Invoke", L"dispidMember", L"riid", L"lcid", L"wFlags",
                                          L"pdispparams", L"pvarResult", L"pexcepinfo", L"puArgErr"});
    return outcome;
}

PROBE_CASE(names, several_names_asked_of_a_collection)
{
    ProbedHost host;
    return host.withReferencesLeft(
        idsOf(host.reach({{L"MenuGroups"}, {L"Item", {_variant_t(0L)}}, {L"Toolbars"}, {L"Item", {0L}}}),
              {L"Float", L"rows", L"top", L"left"}));
}

PROBE_CASE(names, zero_names)
{
    ProbedHost host;
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Count")};
    DISPID id = 0x5A5A;
    const HRESULT status =
        host.reach({{L"MenuGroups"}})->GetIDsOfNames(IID_NULL, names, 0, LOCALE_USER_DEFAULT, &id);
    return host.withReferencesLeft(probe::status(status) + " id " +
                                   (id == 0x5A5A ? "kept" : std::to_string(id)));
}

PROBE_CASE(names, zero_names_of_no_member)
{
    ProbedHost host;
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Reload")};
    DISPID id = 0x5A5A;
    const HRESULT status =
        host.reach({{L"MenuGroups"}})->GetIDsOfNames(IID_NULL, names, 0, LOCALE_USER_DEFAULT, &id);
    return host.withReferencesLeft(probe::status(status) + " id " +
                                   (id == 0x5A5A ? "kept" : std::to_string(id)));
}

PROBE_CASE(names, null_name_array)
{
    ProbedHost host;
    DISPID id = 0x5A5A;
    const HRESULT status = host.application()->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id);
    return host.withReferencesLeft(probe::status(status) + " id " +
                                   (id == 0x5A5A ? "kept" : std::to_string(id)));
}

PROBE_CASE(names, interface_id_not_null)
{
    ProbedHost host;
    return host.withReferencesLeft(idsOf(host.application(), {L"MenuGroups"}, IID_IDispatch));
}

PROBE_CASE(names, simulator_members_not_on_the_host)
{
    return namesOnApplication({L"ReferencesHeld"});
}
