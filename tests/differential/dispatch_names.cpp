// GetIDsOfNames on the host's objects: members and their parameters by name, in any case, the
// names every dual interface inherits, and names or arrays that are not there.
#include "dispatch_calls.h"

#include <vector>

using namespace dispatch_probe;

namespace {

using Names = std::vector<const wchar_t*>;

// The status and every id GetIDsOfNames gave for `names` (with `count` of them, all unless
// given), and whether it wrote past them.
std::string idsOf(IDispatch* object, const Names& names, const IID& iid = IID_NULL, UINT count = ~0u)
{
    std::vector<LPOLESTR> asked;
    for (const wchar_t* name : names)
        asked.push_back(const_cast<LPOLESTR>(name));
    std::vector<DISPID> ids(names.size() + 1, 0x5A5A);
    const HRESULT status =
        object->GetIDsOfNames(iid, asked.data(), count == ~0u ? static_cast<UINT>(asked.size()) : count,
                              LOCALE_USER_DEFAULT, ids.data());
    std::string outcome = probe::status(status) + " ids";
    for (DISPID id : ids)
        outcome += id == 0x5A5A ? std::string(" kept") : " " + std::to_string(id);
    return outcome;
}

// One case: each list of names looked up in turn on `subject`.
struct NamesCase {
    const char* name;
    Subject subject;
    std::vector<Names> lookups;
};

bool addNamesCases(std::initializer_list<NamesCase> cases)
{
    for (const NamesCase& row : cases) {
        probe::add("names", row.name, [row] {
            ProbedHost host;
            IDispatch* subject = host.reach(row.subject);
            std::string outcome;
            for (const Names& names : row.lookups)
                outcome += (outcome.empty() ? "" : " / ") + idsOf(subject, names);
            return host.withReferencesLeft(outcome);
        });
    }
    return true;
}

[[maybe_unused]] const bool kNames = addNamesCases({
    {"member_as_declared", Subject::application, {{L"MenuGroups"}}},
    {"member_in_lower_case", Subject::application, {{L"menugroups"}}},
    {"member_in_upper_case", Subject::application, {{L"MENUGROUPS"}}},
    {"default_member_by_name", Subject::groups, {{L"item"}}},
    {"property_with_get_and_put", Subject::files, {{L"supportPATH"}}},
    {"unknown_member", Subject::groups, {{L"Reload"}}},
    {"empty_name", Subject::groups, {{L""}}},
    {"name_with_trailing_space", Subject::groups, {{L"Count "}}},
    {"member_of_another_interface", Subject::application, {{L"Toolbars"}}},
    {"member_and_its_parameters", Subject::groups, {{L"LoadMenuFile", L"menuFile", L"baseMenu"}}},
    {"parameters_in_another_order_and_case", Subject::groups, {{L"loadmenufile", L"BASEMENU", L"MenuFile"}}},
    {"unknown_parameter", Subject::groups, {{L"LoadMenuFile", L"menuFile", L"fileName"}}},
    {"unknown_parameter_first", Subject::groups, {{L"LoadMenuFile", L"fileName", L"baseMenu"}}},
    {"parameter_of_another_member", Subject::groups, {{L"Item", L"menuFile"}}},
    {"result_parameter", Subject::groups, {{L"Item", L"group"}}},
    {"parameter_of_a_property_put", Subject::files, {{L"SupportPath", L"path"}}},
    {"parameters_of_an_unknown_member", Subject::groups, {{L"Reload", L"menuFile"}}},
    {"member_name_twice", Subject::groups, {{L"LoadMenuFile", L"LoadMenuFile"}}},
    {"same_parameter_twice", Subject::groups, {{L"LoadMenuFile", L"menuFile", L"menuFile"}}},
    {"inherited_query_interface", Subject::application, {{L"QueryInterface"}}},
    {"inherited_add_ref_and_release", Subject::application, {{L"AddRef"}, {L"release"}}},
    {"inherited_dispatch_members",
     Subject::application,
     {{L"GetTypeInfoCount"}, {L"GetTypeInfo"}, {L"GetIDsOfNames"}, {L"INVOKE"}}},
    {"inherited_member_with_its_parameters", Subject::application, {{L"QueryInterface", L"riid", L"ppvObj"}}},
    {"parameters_of_every_inherited_dispatch_member",
     Subject::application,
     {{L"GetTypeInfoCount", L"pctinfo"},
      {L"GetTypeInfo", L"itinfo", L"lcid", L"pptinfo"},
      {L"GetIDsOfNames", L"riid", L"rgszNames", L"cNames", L"lcid", L"rgdispid"},
      {L"Invoke", L"dispidMember", L"riid", L"lcid", L"wFlags", L"pdispparams", L"pvarResult", L"pexcepinfo",
       L"puArgErr"}}},
    {"several_names_asked_of_a_toolbar", Subject::toolbar, {{L"Float", L"rows", L"top", L"left"}}},
    {"simulator_members_not_on_the_host", Subject::application, {{L"ReferencesHeld"}}},
});

// GetIDsOfNames on the menu groups with one name given but `count` asked for.
std::string counted(const wchar_t* name, UINT count)
{
    ProbedHost host;
    return host.withReferencesLeft(idsOf(host.reach(Subject::groups), {name}, IID_NULL, count));
}

}  // namespace

PROBE_CASE(names, zero_names)
{
    return counted(L"Count", 0);
}

PROBE_CASE(names, zero_names_of_no_member)
{
    return counted(L"Reload", 0);
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
