// Default members: DISPID_VALUE called directly, and arguments beyond those a member declares,
// which the dispatcher passes on to the default member of the object it gives, as scripts rely on
// (app.MenuGroups("ZORB"), app.Documents(0)); errors of that second call included.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// app.MenuGroups(index) as a script writes it.
Invocation groupOfApplication(_variant_t index, WORD flags = kMethodOrGet)
{
    return {L"MenuGroups", flags, {std::move(index)}};
}

// app.MenuGroups(0) while calls of `method` fail.
std::string groupWhileFailing(const char* method)
{
    ProbedHost host;
    host.failCalls(method);
    return host.withReferencesLeft(invoke(host.application(), groupOfApplication(0L)));
}

[[maybe_unused]] const bool kDefaultMember =
    addCases("default_member",
             {
                 {"called_directly", Subject::groups, {DISPID_VALUE, kMethodOrGet, {L"ZORB"}}},
                 {"called_directly_as_method", Subject::groups, {DISPID_VALUE, DISPATCH_METHOD, {0L}}},
                 {"called_directly_as_get", Subject::groups, {DISPID_VALUE, DISPATCH_PROPERTYGET, {0L}}},
                 {"called_directly_without_its_argument", Subject::groups, {DISPID_VALUE}},
             });

[[maybe_unused]] const bool kSurplus = addCases(
    "surplus",
    {
        {"group_by_name", Subject::application, groupOfApplication(L"ZORB")},
        {"group_by_position", Subject::application, groupOfApplication(static_cast<short>(0))},
        {"group_as_get_only", Subject::application, groupOfApplication(0L, DISPATCH_PROPERTYGET)},
        {"group_as_method_only", Subject::application, groupOfApplication(0L, DISPATCH_METHOD)},
        {"document_by_position", Subject::application, {L"Documents", kMethodOrGet, {0L}}},
        {"toolbar_of_a_group", Subject::group, {L"Toolbars", kMethodOrGet, {L"TB_STANDARD"}}},
        {"no_such_group", Subject::application, groupOfApplication(L"NoSuchGroup")},
        {"no_such_group_without_excepinfo",
         Subject::application,
         withoutExcepinfo(groupOfApplication(L"NoSuchGroup")),
         {},
         true},
        {"group_position_out_of_range", Subject::application, groupOfApplication(99L)},
        {"group_by_a_mismatched_index", Subject::application, groupOfApplication(variantArray({0L}))},
        {"two_beyond_the_declared", Subject::application, {L"MenuGroups", kMethodOrGet, {0L, 1L}}},
        {"without_a_result", Subject::application, resultIn(ResultSlot::none, groupOfApplication(L"ZORB"))},
        {"result_filled_with_text_beforehand", Subject::application,
         resultIn(ResultSlot::text, groupOfApplication(L"ZORB"))},
        {"result_filled_with_an_object_beforehand", Subject::application,
         resultIn(ResultSlot::object, groupOfApplication(L"ZORB"))},
        {"to_an_object_without_a_default_member", Subject::application, {L"Preferences", kMethodOrGet, {0L}}},
        {"to_a_text", Subject::files, {L"SupportPath", kMethodOrGet, {0L}}},
        {"to_a_number", Subject::groups, {L"Count", kMethodOrGet, {0L}}},
        {"named_argument_beyond_the_declared",
         Subject::application,
         {L"MenuGroups", kMethodOrGet, {}, {{0, L"ZORB"}}}},
        {"to_a_method_with_an_object_result", Subject::groups, {L"Item", kMethodOrGet, {L"ZORB", 0L}}},
        {"to_a_method_without_a_result",
         Subject::toolbar,
         {L"Dock", DISPATCH_METHOD, {2L, 3L}},
         {L"DockStatus"}},
        {"to_a_method_without_parameters", Subject::document, {L"Activate", DISPATCH_METHOD, {1L}}},
    });

}  // namespace

PROBE_CASE(surplus, toolbar_of_the_loaded_mx_group)
{
    ProbedHost host;
    host.reach({{L"MenuGroups"}, {L"LoadMenuFile", {_variant_t(L"C:\\Program Files\\MX\\Support\\MX")}}});
    IDispatch* group = host.reach({{L"MenuGroups"}, {L"Item", {_variant_t(L"MX")}}});
    return host.withReferencesLeft(invoke(group, {L"Toolbars", kMethodOrGet, {L"TB_MX_MAIN"}}));
}

PROBE_CASE(surplus, failing_first_member)
{
    return groupWhileFailing("HostApplication.get_MenuGroups");
}

PROBE_CASE(surplus, failing_default_member)
{
    return groupWhileFailing("HostMenuGroups.Item");
}
