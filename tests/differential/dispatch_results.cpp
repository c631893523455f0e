// What a call does to the caller's result variant: the value a member gives, of each type; no
// place for it (pVarResult null); and a variant the caller filled with a text or an object
// beforehand, before calls that succeed, fail, give nothing or are refused by the dispatcher.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

const Invocation kCount{L"Count", kMethodOrGet};
const Invocation kFirstGroup{L"Item", kMethodOrGet, {0L}};
const Invocation kMissingGroup{L"Item", kMethodOrGet, {L"NoSuchGroup"}};
const Invocation kActivated{L"Activate", DISPATCH_METHOD};
const Invocation kHidden = put(L"Visible", false);
const Invocation kPlotTypeRefused = put(L"PlotType", 99L);
const Invocation kTooFew{L"Float", DISPATCH_METHOD, {1L}};
const Invocation kMismatched{L"Float", DISPATCH_METHOD, {L"top", 1L, 1L}};

void withholdGroups(ProbedHost& host)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::nullObject;
    fault.method = "HostApplication.get_MenuGroups";
    host.host().armFault(std::move(fault));
}

[[maybe_unused]] const bool kResults = addCases(
    "results",
    {
        {"number", Subject::groups, kCount},
        {"text", Subject::group, {1, DISPATCH_PROPERTYGET}},
        {"boolean", Subject::toolbar, {L"Visible", DISPATCH_PROPERTYGET}},
        {"enumeration", Subject::layout, {L"PlotType", DISPATCH_PROPERTYGET}},
        {"boolean_of_a_method_with_an_optional_parameter", Subject::plot, {L"PlotToDevice", DISPATCH_METHOD}},
        {"object", Subject::groups, kFirstGroup},
        {"null_object_the_host_gave",
         Subject::application,
         {L"MenuGroups", kMethodOrGet},
         {},
         false,
         withholdGroups},
        {"number_without_a_place_for_it", Subject::groups, resultIn(ResultSlot::none, kCount)},
        {"object_without_a_place_for_it", Subject::groups, resultIn(ResultSlot::none, kFirstGroup)},
        {"failure_without_a_place_for_it", Subject::groups, resultIn(ResultSlot::none, kMissingGroup)},
        {"text_before_a_number", Subject::groups, resultIn(ResultSlot::text, kCount)},
        {"object_before_a_number", Subject::groups, resultIn(ResultSlot::object, kCount)},
        {"text_before_an_object", Subject::groups, resultIn(ResultSlot::text, kFirstGroup)},
        {"object_before_an_object", Subject::groups, resultIn(ResultSlot::object, kFirstGroup)},
        {"text_before_a_failing_get", Subject::groups, resultIn(ResultSlot::text, kMissingGroup)},
        {"object_before_a_failing_get", Subject::groups, resultIn(ResultSlot::object, kMissingGroup)},
        {"text_before_a_call_that_gives_nothing", Subject::document, resultIn(ResultSlot::text, kActivated)},
        {"object_before_a_call_that_gives_nothing", Subject::document,
         resultIn(ResultSlot::object, kActivated)},
        {"text_before_a_put", Subject::toolbar, resultIn(ResultSlot::text, kHidden)},
        {"object_before_a_put", Subject::toolbar, resultIn(ResultSlot::object, kHidden)},
        {"text_before_a_failing_put", Subject::layout, resultIn(ResultSlot::text, kPlotTypeRefused)},
        {"object_before_a_failing_put", Subject::layout, resultIn(ResultSlot::object, kPlotTypeRefused)},
        {"text_before_a_wrong_argument_count", Subject::toolbar, resultIn(ResultSlot::text, kTooFew)},
        {"object_before_a_wrong_argument_count", Subject::toolbar, resultIn(ResultSlot::object, kTooFew)},
        {"object_before_a_type_mismatch", Subject::toolbar, resultIn(ResultSlot::object, kMismatched)},
        {"object_before_an_unknown_member", Subject::application, resultIn(ResultSlot::object, {99})},
        {"text_before_an_unknown_member", Subject::application, resultIn(ResultSlot::text, {99})},
    });

}  // namespace
