// Enumeration as script engines ask for it: _NewEnum (DISPID_NEWENUM) called in the ways engines
// call it, the IEnumVARIANT it gives walked, moved and copied, and what a failure leaves.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

const WORD kMethodOrGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

[[maybe_unused]] const bool kNewEnum =
    addCases("enumeration",
             {
                 {"new_enum_as_method_or_get", Subject::groups, {DISPID_NEWENUM, kMethodOrGet}},
                 {"new_enum_as_method", Subject::groups, {DISPID_NEWENUM, DISPATCH_METHOD}},
                 {"new_enum_as_get", Subject::groups, {DISPID_NEWENUM, DISPATCH_PROPERTYGET}},
                 {"new_enum_as_put", Subject::groups, put(DISPID_NEWENUM, 0L)},
                 {"new_enum_by_name", Subject::toolbar, {L"_NewEnum", kMethodOrGet}},
                 {"new_enum_with_an_argument", Subject::groups, {DISPID_NEWENUM, kMethodOrGet, {0L}}},
                 {"new_enum_without_a_result", Subject::groups, resultIn(ResultSlot::none, {DISPID_NEWENUM})},
                 {"new_enum_over_a_text", Subject::groups, resultIn(ResultSlot::text, {DISPID_NEWENUM})},
                 {"new_enum_of_an_object_without_one", Subject::document, {DISPID_NEWENUM, kMethodOrGet}},
                 {"new_enum_refused",
                  Subject::groups,
                  {DISPID_NEWENUM, kMethodOrGet},
                  {},
                  true,
                  [](ProbedHost& host) { host.failCalls("HostMenuGroups._NewEnum"); }},
             });

// The IEnumVARIANT that _NewEnum gives `collection`, held by the caller.
IEnumVARIANTPtr enumerationOf(IDispatch* collection)
{
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    _variant_t given;
    collection->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, kMethodOrGet, &none, &given, nullptr,
                       nullptr);
    return V_VT(&given) == VT_UNKNOWN || V_VT(&given) == VT_DISPATCH ? IEnumVARIANTPtr(V_UNKNOWN(&given))
                                                                     : IEnumVARIANTPtr();
}

// What Next(count) answered: its status, how many it says it gave, and each item given.
std::string next(IEnumVARIANT* walk, ULONG count)
{
    std::vector<VARIANT> items(count);
    ULONG fetched = 99;
    const HRESULT status = walk->Next(count, items.data(), &fetched);
    std::string outcome = " next(" + std::to_string(count) + ") " + probe::status(status) + " fetched " +
                          std::to_string(fetched);
    for (VARIANT& item : items) {
        outcome += " [" + probe::value(item) + "]";
        VariantClear(&item);
    }
    return outcome;
}

// A walk of the host's toolbars of the first group, `steps` on its enumeration, references after.
std::string walkToolbars(const std::function<std::string(IEnumVARIANT*)>& steps)
{
    ProbedHost host;
    IEnumVARIANTPtr walk =
        enumerationOf(host.reach({{L"MenuGroups"}, {L"Item", {_variant_t(0L)}}, {L"Toolbars"}}));
    if (!walk)
        return host.withReferencesLeft("no enumeration");
    std::string outcome = steps(walk);
    walk = nullptr;
    return host.withReferencesLeft(outcome);
}

}  // namespace

PROBE_CASE(enumeration, next_one_by_one)
{
    return walkToolbars([](IEnumVARIANT* walk) { return next(walk, 1) + next(walk, 1) + next(walk, 1); });
}

PROBE_CASE(enumeration, next_more_than_are_left)
{
    return walkToolbars([](IEnumVARIANT* walk) { return next(walk, 5) + next(walk, 2); });
}

PROBE_CASE(enumeration, next_of_none)
{
    return walkToolbars([](IEnumVARIANT* walk) { return next(walk, 0); });
}

PROBE_CASE(enumeration, skip_reset_and_clone)
{
    return walkToolbars([](IEnumVARIANT* walk) {
        std::string outcome = " skip(1) " + probe::status(walk->Skip(1));
        IEnumVARIANTPtr copy;
        outcome += " clone " + probe::status(walk->Clone(&copy));
        outcome += " skip(9) " + probe::status(walk->Skip(9)) + next(walk, 1);
        outcome += " reset " + probe::status(walk->Reset()) + next(walk, 1);
        return outcome + " copy" + next(copy, 2);
    });
}

PROBE_CASE(enumeration, interfaces_of_the_enumeration)
{
    return walkToolbars([](IEnumVARIANT* walk) {
        IDispatchPtr dispatch;
        IUnknownPtr unknown;
        return " IDispatch " +
               probe::status(walk->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))) +
               " IUnknown " +
               probe::status(walk->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)));
    });
}

PROBE_CASE(enumeration, next_refused_by_a_fault)
{
    ProbedHost host;
    IEnumVARIANTPtr walk = enumerationOf(host.reach(Subject::groups));
    host.failCalls("IEnumVARIANT.Next");
    std::string outcome = next(walk, 2);
    walk = nullptr;
    return host.withReferencesLeft(outcome);
}

// The restricted, hidden member as the type information describes it.
PROBE_CASE(enumeration, type_information_of_new_enum)
{
    ProbedHost host;
    ITypeInfoPtr typeInfo;
    std::string outcome =
        probe::status(host.reach(Subject::groups)->GetTypeInfo(0, LOCALE_USER_DEFAULT, &typeInfo));
    TYPEATTR* attributes = nullptr;
    if (typeInfo && SUCCEEDED(typeInfo->GetTypeAttr(&attributes))) {
        for (UINT f = 0; f < attributes->cFuncs; ++f) {
            FUNCDESC* function = nullptr;
            if (FAILED(typeInfo->GetFuncDesc(f, &function)))
                continue;
            if (function->memid == DISPID_NEWENUM)
                outcome += " invkind " + std::to_string(function->invkind) + " flags " +
                           std::to_string(function->wFuncFlags) + " params " +
                           std::to_string(function->cParams) + " result " +
                           std::to_string(function->elemdescFunc.tdesc.vt);
            typeInfo->ReleaseFuncDesc(function);
        }
        typeInfo->ReleaseTypeAttr(attributes);
    }
    typeInfo = nullptr;
    return host.withReferencesLeft(outcome);
}
