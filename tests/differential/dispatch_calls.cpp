#include "dispatch_calls.h"

#include "framework/cmd_target.h"
#include "host/sdk.h"

#include <cstdio>
#include <cstdlib>

namespace dispatch_probe {
namespace {

// What EXCEPINFO and puArgErr hold before a call, so that a field the call did not write shows.
constexpr WORD kMarkedWord = 0x5A5A;
constexpr DWORD kMarkedContext = 0x5A5A5A5A;
constexpr SCODE kMarkedStatus = static_cast<SCODE>(0x5A5A5A5A);
constexpr UINT kMarkedArgument = 0x5A5A5A5A;
int markedReserved;

HRESULT STDMETHODCALLTYPE markedFillIn(EXCEPINFO*)
{
    return E_FAIL;
}

EXCEPINFO markedException()
{
    EXCEPINFO exception{};
    exception.wCode = kMarkedWord;
    exception.wReserved = kMarkedWord;
    exception.dwHelpContext = kMarkedContext;
    exception.pvReserved = &markedReserved;
    exception.pfnDeferredFillIn = markedFillIn;
    exception.scode = kMarkedStatus;
    return exception;
}

std::string number(unsigned long value, unsigned long marked)
{
    return value == marked ? "kept" : std::to_string(value);
}

template <class Pointer> std::string pointer(Pointer value, Pointer marked)
{
    if (value == marked)
        return "kept";
    return value == nullptr ? "null" : "changed";
}

// Says what the call left in EXCEPINFO and frees the texts it put there.
std::string describe(EXCEPINFO& exception)
{
    const EXCEPINFO marked = markedException();
    const bool untouched =
        exception.wCode == marked.wCode && exception.wReserved == marked.wReserved &&
        exception.bstrSource == nullptr && exception.bstrDescription == nullptr &&
        exception.bstrHelpFile == nullptr && exception.dwHelpContext == marked.dwHelpContext &&
        exception.pvReserved == marked.pvReserved &&
        exception.pfnDeferredFillIn == marked.pfnDeferredFillIn && exception.scode == marked.scode;
    std::string text = " exc untouched";
    if (!untouched) {
        text = " exc {wCode " + number(exception.wCode, marked.wCode) + ", wReserved " +
               number(exception.wReserved, marked.wReserved) + ", source " +
               probe::text(exception.bstrSource) + ", description " + probe::text(exception.bstrDescription) +
               ", helpFile " + probe::text(exception.bstrHelpFile) + ", helpContext " +
               number(exception.dwHelpContext, marked.dwHelpContext) + ", pvReserved " +
               pointer(exception.pvReserved, marked.pvReserved) + ", deferred " +
               pointer(exception.pfnDeferredFillIn, marked.pfnDeferredFillIn) + ", scode " +
               (exception.scode == marked.scode ? std::string("kept") : probe::status(exception.scode)) + "}";
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return text;
}

// Whether `after` still holds the very value `before` held (the same text or object, not a copy).
bool holdsTheSame(const VARIANT& after, const VARIANT& before)
{
    if (V_VT(&after) != V_VT(&before))
        return false;
    if (V_VT(&before) == VT_BSTR)
        return V_BSTR(&after) == V_BSTR(&before);
    if (V_VT(&before) == VT_DISPATCH)
        return V_DISPATCH(&after) == V_DISPATCH(&before);
    return true;
}

}  // namespace

ProbedHost::ProbedHost() : m_application(zbedGetZorbWinApp()->GetIDispatch(TRUE), false)
{
    SetErrorInfo(0, nullptr);
}

ProbedHost::~ProbedHost()
{
    m_reached.clear();
    m_application = nullptr;
    SetErrorInfo(0, nullptr);
}

IDispatch* ProbedHost::reach(std::initializer_list<Step> steps)
{
    IDispatchPtr current = m_application;
    for (const Step& step : steps) {
        std::vector<VARIANT> reversed(step.arguments.rbegin(), step.arguments.rend());
        DISPPARAMS parameters{reversed.empty() ? nullptr : reversed.data(), nullptr,
                              static_cast<UINT>(reversed.size()), 0};
        _variant_t given;
        const HRESULT status =
            current->Invoke(idOf(current, step.name), IID_NULL, LOCALE_USER_DEFAULT,
                            DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, &given, nullptr, nullptr);
        if (FAILED(status) || V_VT(&given) != VT_DISPATCH || V_DISPATCH(&given) == nullptr) {
            std::fprintf(stderr, "the probe could not reach %ls: %s\n", step.name,
                         probe::status(status).c_str());
            std::exit(3);
        }
        current = V_DISPATCH(&given);
    }
    m_reached.push_back(current);
    return current;
}

IDispatch* ProbedHost::reach(Subject subject)
{
    const Step firstGroup{L"Item", {_variant_t(0L)}};
    switch (subject) {
    case Subject::application:
        return reach(std::initializer_list<Step>{});
    case Subject::groups:
        return reach({{L"MenuGroups"}});
    case Subject::group:
        return reach({{L"MenuGroups"}, firstGroup});
    case Subject::toolbar:
        return reach({{L"MenuGroups"}, firstGroup, {L"Toolbars"}, {L"Item", {_variant_t(0L)}}});
    case Subject::files:
        return reach({{L"Preferences"}, {L"Files"}});
    case Subject::document:
        return reach({{L"ActiveDocument"}});
    case Subject::layout:
        return reach({{L"ActiveDocument"}, {L"ActiveLayout"}});
    case Subject::plot:
        return reach({{L"ActiveDocument"}, {L"Plot"}});
    }
    return nullptr;
}

void ProbedHost::failCalls(const char* method, HRESULT status)
{
    sim::Fault fault;
    fault.kind = sim::FaultKind::failCall;
    fault.method = method;
    fault.status = status;
    m_host.armFault(std::move(fault));
}

std::string ProbedHost::withReferencesLeft(const std::string& outcome)
{
    m_reached.clear();
    m_application = nullptr;
    return outcome + " refs " + std::to_string(m_host.referencesHeld());
}

DISPID idOf(IDispatch* object, const wchar_t* name)
{
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

void* OwnObject::interfaceFor(REFIID iid)
{
    return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT STDMETHODCALLTYPE OwnObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                            VARIANT* result, EXCEPINFO*, UINT*)
{
    if (member != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0)
        return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs != 0)
        return DISP_E_BADPARAMCOUNT;
    if (result != nullptr) {
        V_VT(result) = VT_BSTR;
        V_BSTR(result) = SysAllocString(L"own");
    }
    return S_OK;
}

std::string referencesOn(IUnknown* object)
{
    object->AddRef();
    const ULONG count = object->Release();
    return " mine " + std::to_string(static_cast<long>(count) - 1);
}

std::string invoke(IDispatch* object, Invocation call)
{
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    for (const auto& [id, value] : call.named) {
        names.push_back(id);
        arguments.push_back(value);
    }
    arguments.insert(arguments.end(), call.positional.rbegin(), call.positional.rend());
    DISPPARAMS parameters{arguments.empty() ? nullptr : arguments.data(),
                          names.empty() ? nullptr : names.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(names.size())};
    if (call.tamper)
        call.tamper(parameters);

    // What the caller put in the result beforehand is the caller's: a call that writes a result
    // over it does not release it.
    const IDispatchPtr own =
        call.result == ResultSlot::object ? IDispatchPtr(new OwnObject(), false) : nullptr;
    VARIANT before;
    VariantInit(&before);
    if (call.result == ResultSlot::text) {
        V_VT(&before) = VT_BSTR;
        V_BSTR(&before) = SysAllocString(L"before");
    }
    else if (call.result == ResultSlot::object) {
        V_VT(&before) = VT_DISPATCH;
        V_DISPATCH(&before) = own;
        own->AddRef();
    }
    VARIANT result = before;
    EXCEPINFO exception = markedException();
    UINT argumentError = kMarkedArgument;

    const DISPID member = call.member.name != nullptr ? idOf(object, call.member.name) : call.member.id;
    const HRESULT status = object->Invoke(member, *call.iid, LOCALE_USER_DEFAULT, call.flags, &parameters,
                                          call.result == ResultSlot::none ? nullptr : &result,
                                          call.exceptionGiven ? &exception : nullptr,
                                          call.argumentErrorGiven ? &argumentError : nullptr);

    std::string outcome = probe::status(status);
    if (call.result != ResultSlot::none)
        outcome += " result " + probe::value(result);
    if (call.exceptionGiven)
        outcome += describe(exception);
    if (call.argumentErrorGiven)
        outcome += " argErr " + number(argumentError, kMarkedArgument);
    if (own)
        outcome += referencesOn(own);
    const bool replaced = !holdsTheSame(result, before);
    VariantClear(&result);
    if (replaced)
        VariantClear(&before);
    return outcome;
}

std::string readProperty(IDispatch* object, const wchar_t* name)
{
    Invocation get{name, DISPATCH_PROPERTYGET};
    get.exceptionGiven = false;
    get.argumentErrorGiven = false;
    return " " + invoke(object, std::move(get));
}

Invocation put(Member member, _variant_t value)
{
    Invocation call{member, DISPATCH_PROPERTYPUT};
    call.named.emplace_back(DISPID_PROPERTYPUT, std::move(value));
    return call;
}

Invocation resultIn(ResultSlot result, Invocation call)
{
    call.result = result;
    return call;
}

Invocation withoutExcepinfo(Invocation call)
{
    call.exceptionGiven = false;
    return call;
}

Invocation withoutArgumentError(Invocation call)
{
    call.argumentErrorGiven = false;
    return call;
}

Invocation tampered(std::function<void(DISPPARAMS&)> tamper, Invocation call)
{
    call.tamper = std::move(tamper);
    return call;
}

bool addCases(const char* group, std::initializer_list<CallCase> cases)
{
    for (const CallCase& row : cases) {
        probe::add(group, row.name, [row] {
            ProbedHost host;
            IDispatch* subject = host.reach(row.subject);
            if (row.prepare)
                row.prepare(host);
            std::string outcome = invoke(subject, row.call);
            if (row.errorInfoAfter)
                outcome += errorInfoLeft();
            if (!row.readBack.empty())
                outcome += " then";
            for (const wchar_t* name : row.readBack)
                outcome += readProperty(subject, name);
            return host.withReferencesLeft(outcome);
        });
    }
    return true;
}

std::string errorInfoLeft()
{
    IErrorInfo* info = nullptr;
    if (GetErrorInfo(0, &info) != S_OK || info == nullptr)
        return " errorInfo none";
    BSTR source = nullptr;
    BSTR description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    info->Release();
    const std::string text =
        " errorInfo {source " + probe::text(source) + ", description " + probe::text(description) + "}";
    SysFreeString(source);
    SysFreeString(description);
    return text;
}

_variant_t nullValue()
{
    _variant_t value;
    V_VT(&value) = VT_NULL;
    return value;
}

_variant_t missing()
{
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

_variant_t variantArray(std::initializer_list<_variant_t> elements)
{
    _variant_t array;
    V_VT(&array) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
    LONG at = 0;
    for (const _variant_t& element : elements) {
        SafeArrayPutElement(V_ARRAY(&array), &at, const_cast<_variant_t*>(&element));
        ++at;
    }
    return array;
}

_variant_t reference(VARTYPE type, void* target)
{
    _variant_t value;
    V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&value) = target;
    return value;
}

}  // namespace dispatch_probe
