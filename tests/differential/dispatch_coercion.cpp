// Every parameter type a host member takes (BSTR, long, VARIANT_BOOL, VARIANT, the ZbPlotType
// enumeration), given each variant type scripts pass, and what the host then holds: one case per
// pair, "coercion.<given>_to_<parameter>".
#include "dispatch_calls.h"

#include <functional>

using namespace dispatch_probe;

namespace {

struct Given {
    const char* name;
    std::function<_variant_t(IDispatch* own)> make;
};

// A member taking one parameter type: the call passing it a value on `subject`, and the property
// that then says what arrived (none: the call's result says it).
struct Parameter {
    const char* name;
    Subject subject;
    std::function<Invocation(_variant_t value)> call;
    const wchar_t* readBack;
};

const Given kGiven[] = {
    {"i2", [](IDispatch*) { return _variant_t(static_cast<short>(1)); }},
    {"i4", [](IDispatch*) { return _variant_t(3L); }},
    {"ui1", [](IDispatch*) { return _variant_t(static_cast<BYTE>(2)); }},
    {"i8", [](IDispatch*) { return _variant_t(4LL); }},
    {"r8", [](IDispatch*) { return _variant_t(2.5); }},
    {"r8_too_large", [](IDispatch*) { return _variant_t(1e10); }},
    {"text_of_a_number", [](IDispatch*) { return _variant_t(L"4"); }},
    {"text", [](IDispatch*) { return _variant_t(L"abc"); }},
    {"boolean", [](IDispatch*) { return _variant_t(true); }},
    {"empty", [](IDispatch*) { return _variant_t(); }},
    {"null", [](IDispatch*) { return nullValue(); }},
    {"object", [](IDispatch* own) { return _variant_t(own); }},
    {"null_object", [](IDispatch*) { return _variant_t(static_cast<IDispatch*>(nullptr)); }},
    {"missing", [](IDispatch*) { return missing(); }},
    {"array",
     [](IDispatch*) {
         return variantArray({_variant_t(1L), _variant_t(2L)});
     }},
};

const Parameter kParameters[] = {
    {"text", Subject::files, [](_variant_t value) { return put(L"SupportPath", std::move(value)); },
     L"SupportPath"},
    {"long", Subject::toolbar,
     [](_variant_t value) {
         return Invocation{L"Float", DISPATCH_METHOD, {std::move(value), 5L, 1L}};
     },
     L"Top"},
    {"boolean", Subject::toolbar, [](_variant_t value) { return put(L"Visible", std::move(value)); },
     L"Visible"},
    {"variant", Subject::groups,
     [](_variant_t value) {
         return Invocation{L"Item", DISPATCH_METHOD, {std::move(value)}};
     },
     nullptr},
    {"enumeration", Subject::layout, [](_variant_t value) { return put(L"PlotType", std::move(value)); },
     L"PlotType"},
};

[[maybe_unused]] const bool kRegistered = [] {
    for (const Given& given : kGiven) {
        for (const Parameter& parameter : kParameters) {
            const std::string name = std::string(given.name) + "_to_" + parameter.name;
            probe::add("coercion", name.c_str(), [&given, &parameter] {
                const IDispatchPtr own(new OwnObject(), false);
                std::string outcome;
                {
                    ProbedHost host;
                    IDispatch* subject = host.reach(parameter.subject);
                    outcome = invoke(subject, parameter.call(given.make(own)));
                    if (parameter.readBack != nullptr)
                        outcome += " then" + readProperty(subject, parameter.readBack);
                    outcome = host.withReferencesLeft(outcome);
                }
                return outcome + referencesOn(own);
            });
        }
    }
    return true;
}();

}  // namespace
