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

struct Parameter {
    const char* name;
    // Passes `value` to a member that takes this parameter type, and reads back what arrived.
    std::function<std::string(ProbedHost&, _variant_t value)> pass;
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
    {"text",
     [](ProbedHost& host, _variant_t value) {
         IDispatch* files = host.reach({{L"Preferences"}, {L"Files"}});
         const std::string outcome = invoke(files, put(idOf(files, L"SupportPath"), std::move(value)));
         return outcome + " then" + readProperty(files, L"SupportPath");
     }},
    {"long",
     [](ProbedHost& host, _variant_t value) {
         IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
         const std::string outcome = invoke(
             toolbar,
             {idOf(toolbar, L"Float"), DISPATCH_METHOD, {std::move(value), _variant_t(5L), _variant_t(1L)}});
         return outcome + " then" + readProperty(toolbar, L"Top");
     }},
    {"boolean",
     [](ProbedHost& host, _variant_t value) {
         IDispatch* toolbar = host.reach({{L"MenuGroups"}, {L"Item", {0L}}, {L"Toolbars"}, {L"Item", {0L}}});
         const std::string outcome = invoke(toolbar, put(idOf(toolbar, L"Visible"), std::move(value)));
         return outcome + " then" + readProperty(toolbar, L"Visible");
     }},
    {"variant",
     [](ProbedHost& host, _variant_t value) {
         IDispatch* groups = host.reach({{L"MenuGroups"}});
         return invoke(groups, {idOf(groups, L"Item"), DISPATCH_METHOD, {std::move(value)}});
     }},
    {"enumeration",
     [](ProbedHost& host, _variant_t value) {
         IDispatch* layout = host.reach({{L"ActiveDocument"}, {L"ActiveLayout"}});
         const std::string outcome = invoke(layout, put(idOf(layout, L"PlotType"), std::move(value)));
         return outcome + " then" + readProperty(layout, L"PlotType");
     }},
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
                    outcome = host.withReferencesLeft(parameter.pass(host, given.make(own)));
                }
                return outcome + referencesOn(own);
            });
        }
    }
    return true;
}();

}  // namespace
