// Late-bound calls on the simulated host's objects, as clients make them.
#include "probe.h"

#include "framework/cmd_target.h"
#include "host/sdk.h"
#include "sim/host.h"

#include <vector>

namespace {

// The host application's IDispatch on a fresh default host, for one case.
class ProbedHost {
public:
    ProbedHost() : m_application(zbedGetZorbWinApp()->GetIDispatch(TRUE), false) {}
    ~ProbedHost() { m_application = nullptr; }
    ProbedHost(const ProbedHost&) = delete;
    ProbedHost& operator=(const ProbedHost&) = delete;

    IDispatch* application() const { return m_application; }
    long referencesHeld() const { return m_host.referencesHeld(); }

private:
    sim::Host m_host;
    IDispatchPtr m_application;
};

DISPID idOf(IDispatch* object, const wchar_t* name)
{
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

}  // namespace

// A property written without naming its value DISPID_PROPERTYPUT, as no script engine does.
PROBE_CASE(invoke, put_without_named_argument)
{
    ProbedHost host;
    VARIANT preferences;
    VariantInit(&preferences);
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    host.application()->Invoke(idOf(host.application(), L"Preferences"), IID_NULL, LOCALE_USER_DEFAULT,
                               DISPATCH_PROPERTYGET, &none, &preferences, nullptr, nullptr);
    VARIANT files;
    VariantInit(&files);
    V_DISPATCH(&preferences)->Invoke(idOf(V_DISPATCH(&preferences), L"Files"), IID_NULL, LOCALE_USER_DEFAULT,
                                     DISPATCH_PROPERTYGET, &none, &files, nullptr, nullptr);
    _variant_t path(L"D:\\Support");
    DISPPARAMS unnamed{&path, nullptr, 1, 0};
    const HRESULT status = V_DISPATCH(&files)->Invoke(idOf(V_DISPATCH(&files), L"SupportPath"), IID_NULL,
                                                      LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &unnamed,
                                                      nullptr, nullptr, nullptr);
    VariantClear(&files);
    VariantClear(&preferences);
    return probe::status(status) + " refs " + std::to_string(host.referencesHeld() - 1);
}
