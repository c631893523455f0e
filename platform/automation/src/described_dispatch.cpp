#include "described_dispatch.h"

#include "automation.h"
#include "described_members.h"

#include <vector>

namespace automation::detail {
namespace {

// The type an argument of a declared type is coerced to before the call.
VARTYPE coercedType(VARTYPE declared)
{
    return declared == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : declared;
}

bool givesResult(const DescribedMember& member)
{
    return member.resultType != VT_EMPTY;
}

// A property get without parameters whose caller takes its result hands the arguments it is
// given on to the default member of the object it gives.
bool passesArgumentsOn(const DescribedMember& member, bool resultGiven)
{
    return member.parameterCount == 0 && givesResult(member) && resultGiven &&
           (member.kind & INVOKE_PROPERTYGET) != 0;
}

bool isMissing(const VARIANT& argument)
{
    return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

// The arguments of one call in declared order, owning what coercion made.
class CallArguments {
public:
    explicit CallArguments(size_t count) : m_values(count), m_owned(count, false)
    {
        for (VARIANT& value : m_values)
            VariantInit(&value);
    }
    ~CallArguments()
    {
        for (size_t i = 0; i < m_values.size(); ++i) {
            if (m_owned[i])
                VariantClear(&m_values[i]);
        }
    }
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;

    // The caller's own variant, passed as it is (a declared VARIANT, or one of the declared type).
    void passAsGiven(size_t at, const VARIANT& given) { m_values[at] = given; }
    void passMissing(size_t at)
    {
        V_VT(&m_values[at]) = VT_ERROR;
        V_ERROR(&m_values[at]) = DISP_E_PARAMNOTFOUND;
    }
    HRESULT passCoerced(size_t at, const VARIANT& given, VARTYPE type)
    {
        const HRESULT converted = VariantChangeType(&m_values[at], const_cast<VARIANT*>(&given), 0, type);
        m_owned[at] = SUCCEEDED(converted);
        return converted;
    }
    VARIANT* values() { return m_values.data(); }

private:
    std::vector<VARIANT> m_values;
    std::vector<bool> m_owned;
};

// Hands out the caller's arguments to the declared parameters, in declared order.
class ArgumentSource {
public:
    ArgumentSource(const DISPPARAMS& parameters, UINT slots) : m_parameters(parameters), m_lastSlot(slots - 1)
    {
    }

    // The argument for parameter slot `at` (the result's slot included): the named one for it,
    // else the next positional one; null when there is none left.
    const VARIANT* next(UINT at)
    {
        for (UINT j = 0; j < m_parameters.cNamedArgs; ++j) {
            const DISPID name = m_parameters.rgdispidNamedArgs[j];
            if (name == static_cast<DISPID>(at) || (at == m_lastSlot && name == DISPID_PROPERTYPUT))
                return &m_parameters.rgvarg[j];
        }
        if (m_positionalTaken + m_parameters.cNamedArgs < m_parameters.cArgs)
            return &m_parameters.rgvarg[m_parameters.cArgs - 1 - m_positionalTaken++];
        return nullptr;
    }

private:
    const DISPPARAMS& m_parameters;
    UINT m_lastSlot;
    UINT m_positionalTaken = 0;
};

// Fills `arguments` for `member` from the caller's, or says why the call cannot be made.
HRESULT bindArguments(const DescribedMember& member, const DISPPARAMS& parameters, bool resultGiven,
                      CallArguments& arguments)
{
    const UINT declared = static_cast<UINT>(member.parameterCount);
    const UINT slots = declared + (givesResult(member) ? 1 : 0);
    ArgumentSource source(parameters, slots);
    for (UINT at = 0; at < slots; ++at) {
        const VARIANT* given = source.next(at);
        if (at == declared) {
            // No argument may stand where the result goes, unless it is passed on.
            if (at < parameters.cArgs && !passesArgumentsOn(member, resultGiven))
                return DISP_E_BADPARAMCOUNT;
            continue;
        }
        const DescribedParameter& parameter = member.parameters[at];
        const bool optional = (parameter.flags & PARAMFLAG_FOPT) != 0;
        if (given == nullptr || (optional && isMissing(*given))) {
            if (!optional)
                return DISP_E_BADPARAMCOUNT;
            arguments.passMissing(at);
            continue;
        }
        const VARTYPE type = coercedType(parameter.type);
        if (type == VT_VARIANT || V_VT(given) == type) {
            arguments.passAsGiven(at, *given);
            continue;
        }
        const HRESULT coerced = arguments.passCoerced(at, *given, type);
        if (FAILED(coerced))
            return coerced;
    }
    return S_OK;
}

// The value a failed member leaves for its result: its type, holding nothing.
VARIANT emptyResultOf(const DescribedMember& member)
{
    VARIANT empty{};
    V_VT(&empty) =
        member.resultType == VT_VARIANT ? static_cast<VARTYPE>(VT_EMPTY) : coercedType(member.resultType);
    return empty;
}

// The member's failure as a caller of Invoke sees it: the exception the thread's error
// information describes.
HRESULT reportException(HRESULT failure, EXCEPINFO* exception)
{
    if (exception == nullptr)
        return DISP_E_EXCEPTION;
    exception->scode = failure;
    IErrorInfoPtr error;
    if (GetErrorInfo(0, &error) == S_OK && error) {
        error->GetDescription(&exception->bstrDescription);
        error->GetHelpFile(&exception->bstrHelpFile);
        error->GetSource(&exception->bstrSource);
        error->GetHelpContext(&exception->dwHelpContext);
    }
    return DISP_E_EXCEPTION;
}

// Arguments given to a property get that takes none go on to the default member of the object
// it gave, which answers the call from then on.
HRESULT passOnToDefaultMember(WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                              UINT* argumentError)
{
    if (V_VT(result) != VT_DISPATCH || V_DISPATCH(result) == nullptr) {
        VariantClear(result);
        return DISP_E_NOTACOLLECTION;
    }
    const IDispatchPtr object(V_DISPATCH(result), false);
    VariantInit(result);
    return object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, parameters, result, exception,
                          argumentError);
}

}  // namespace

HRESULT invokeDescribed(const DescribedInterface& described, void* instance, MEMBERID id, WORD flags,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if (instance == nullptr || parameters == nullptr || parameters->cNamedArgs > parameters->cArgs)
        return E_INVALIDARG;
    const DescribedMember* member = findMember(described, id, flags);
    if (member == nullptr)
        return DISP_E_MEMBERNOTFOUND;
    if ((member->kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0 &&
        (parameters->cNamedArgs == 0 || parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return DISP_E_PARAMNOTFOUND;

    CallArguments arguments(static_cast<size_t>(member->parameterCount));
    const HRESULT bound = bindArguments(*member, *parameters, result != nullptr, arguments);
    if (FAILED(bound))
        return bound;
    VARIANT given;
    VariantInit(&given);
    const HRESULT status = member->call(instance, arguments.values(), &given);
    if (FAILED(status)) {
        VariantClear(&given);
        if (givesResult(*member))
            given = emptyResultOf(*member);
    }
    if (result != nullptr && givesResult(*member))
        *result = given;
    else
        VariantClear(&given);
    if (FAILED(status))
        return reportException(status, exception);

    if (parameters->cArgs != 0 && passesArgumentsOn(*member, result != nullptr))
        return passOnToDefaultMember(flags, parameters, result, exception, argumentError);
    return S_OK;
}

}  // namespace automation::detail

HRESULT DispGetIDsOfNames(ITypeInfo* typeInfo, LPOLESTR* names, UINT count, DISPID* ids)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    return typeInfo->GetIDsOfNames(names, count, ids);
}

HRESULT DispInvoke(void* instance, ITypeInfo* typeInfo, DISPID member, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    return typeInfo->Invoke(instance, member, flags, parameters, result, exception, argumentError);
}
