#include "member_call.h"

#include "call_types.h"

#include <vector>

namespace automation::detail {
namespace {

bool isResult(const ParameterModel& parameter)
{
    return (parameter.flags & PARAMFLAG_FRETVAL) != 0;
}

// A property get whose one parameter is its result hands the arguments it is given on to the
// default member of the object it gives, when its caller takes that result.
bool passesArgumentsOn(const FunctionModel& function, bool resultGiven)
{
    return resultGiven && (function.invokeKind & INVOKE_PROPERTYGET) != 0 &&
           function.parameters.size() == 1 && isResult(function.parameters[0]);
}

bool isMissing(const VARIANT& argument)
{
    return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

// The arguments of one call in declared order, as DispCallFunc takes them, owning what coercion
// made, and the room the [out, retval] parameter writes into.
class CallArguments {
public:
    explicit CallArguments(size_t count)
        : m_values(count), m_owned(count, false), m_types(count), m_passed(count)
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
    void passAsGiven(size_t at, VARTYPE type, VARIANT& given) { pass(at, type, &given); }
    void passMissing(size_t at, VARTYPE type)
    {
        V_VT(&m_values[at]) = VT_ERROR;
        V_ERROR(&m_values[at]) = DISP_E_PARAMNOTFOUND;
        pass(at, type, &m_values[at]);
    }
    HRESULT passCoerced(size_t at, VARIANT& given, VARTYPE type)
    {
        const HRESULT converted = VariantChangeType(&m_values[at], &given, 0, type);
        m_owned[at] = SUCCEEDED(converted);
        pass(at, type, &m_values[at]);
        return converted;
    }
    // The result's room, a reference of `type` (VT_BYREF of what the member writes there).
    void passResultRoom(size_t at, VARTYPE type)
    {
        m_resultType = static_cast<VARTYPE>(type & ~VT_BYREF);
        V_VT(&m_values[at]) = type;
        V_BYREF(&m_values[at]) = m_resultType == VT_VARIANT ? static_cast<void*>(&m_result) : &m_result.llVal;
        pass(at, type, &m_values[at]);
    }

    bool hasResult() const { return m_resultType != VT_EMPTY; }
    // What the member wrote into the result's room, owned by the caller from now on. The room is
    // as wide as any value; a 32-bit number is read as 32 bits, whatever width the member wrote.
    VARIANT takeResult() const
    {
        if (m_resultType == VT_VARIANT)
            return m_result;
        VARIANT value = m_result;
        V_VT(&value) = m_resultType;
        if (m_resultType == VT_I4 || m_resultType == VT_ERROR)
            V_I4(&value) = static_cast<std::int32_t>(V_I4(&m_result));
        else if (m_resultType == VT_UI4)
            V_UI4(&value) = static_cast<std::uint32_t>(V_UI4(&m_result));
        return value;
    }

    UINT count() const { return static_cast<UINT>(m_types.size()); }
    VARTYPE* types() { return m_types.data(); }
    VARIANTARG** passed() { return m_passed.data(); }

private:
    void pass(size_t at, VARTYPE type, VARIANT* value)
    {
        m_types[at] = type;
        m_passed[at] = value;
    }

    std::vector<VARIANT> m_values;
    std::vector<bool> m_owned;
    std::vector<VARTYPE> m_types;
    std::vector<VARIANTARG*> m_passed;
    VARTYPE m_resultType = VT_EMPTY;
    VARIANT m_result{};
};

// Hands out the caller's arguments to the declared parameters, in declared order.
class ArgumentSource {
public:
    ArgumentSource(DISPPARAMS& parameters, UINT slots) : m_parameters(parameters), m_lastSlot(slots - 1) {}

    // The argument for parameter slot `at` (the result's slot included): the named one for it,
    // else the next positional one; null when there is none left.
    VARIANT* next(UINT at)
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
    DISPPARAMS& m_parameters;
    UINT m_lastSlot;
    UINT m_positionalTaken = 0;
};

// The parameters this dispatcher does not pass: the caller's locale, a variable count, and
// references other than the result's.
bool isServed(const FunctionModel& function, const std::vector<VARTYPE>& types)
{
    if (function.optionalCount < 0)
        return false;
    for (size_t at = 0; at < types.size(); ++at) {
        const ParameterModel& parameter = function.parameters[at];
        if ((parameter.flags & PARAMFLAG_FLCID) != 0 || ((types[at] & VT_BYREF) != 0 && !isResult(parameter)))
            return false;
    }
    return true;
}

// Fills `arguments` for `function` from the caller's, or says why the call cannot be made.
HRESULT bindArguments(const FunctionModel& function, const std::vector<VARTYPE>& types,
                      DISPPARAMS& parameters, bool resultGiven, CallArguments& arguments)
{
    const UINT slots = static_cast<UINT>(types.size());
    ArgumentSource source(parameters, slots);
    for (UINT at = 0; at < slots; ++at) {
        const ParameterModel& parameter = function.parameters[at];
        VARIANT* given = source.next(at);
        if (isResult(parameter)) {
            // No argument may stand where the result goes, unless it is passed on.
            if (at < parameters.cArgs && !passesArgumentsOn(function, resultGiven))
                return DISP_E_BADPARAMCOUNT;
            if (at + 1 != slots)
                return E_UNEXPECTED;
            arguments.passResultRoom(at, types[at]);
            continue;
        }
        const bool optional = (parameter.flags & PARAMFLAG_FOPT) != 0;
        if (given == nullptr || (optional && isMissing(*given))) {
            if (!optional)
                return DISP_E_BADPARAMCOUNT;
            if ((parameter.flags & PARAMFLAG_FHASDEFAULT) != 0)
                return E_NOTIMPL;
            arguments.passMissing(at, types[at]);
            continue;
        }
        if (types[at] == VT_VARIANT || V_VT(given) == types[at]) {
            arguments.passAsGiven(at, types[at], *given);
            continue;
        }
        const HRESULT coerced = arguments.passCoerced(at, *given, types[at]);
        if (FAILED(coerced))
            return coerced;
    }
    return S_OK;
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
HRESULT passOnToDefaultMember(WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                              UINT* argumentError)
{
    if (V_VT(result) != VT_DISPATCH || V_DISPATCH(result) == nullptr) {
        VariantClear(result);
        return DISP_E_NOTACOLLECTION;
    }
    const IDispatchPtr object(V_DISPATCH(result), false);
    VariantInit(result);
    return object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters, result,
                          exception, argumentError);
}

// The variant type the function returns as DispCallFunc gives it: a status as VT_ERROR.
HRESULT returnTypeOf(ITypeInfo* context, const FunctionModel& function, VARTYPE& type)
{
    type = VT_EMPTY;
    if (function.result.vt == VT_VOID)
        return S_OK;
    return variantTypeOf(context, function.result, type);
}

}  // namespace

HRESULT invokeFunction(ITypeInfo* context, const FunctionModel& function, WORD pointerSize, void* instance,
                       WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* argumentError)
{
    if (function.kind == FUNC_DISPATCH)
        return E_NOTIMPL;
    if ((function.invokeKind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0 &&
        (parameters.cNamedArgs == 0 || parameters.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return DISP_E_PARAMNOTFOUND;
    std::vector<VARTYPE> types(function.parameters.size());
    for (size_t at = 0; at < types.size(); ++at) {
        const HRESULT typed = variantTypeOf(context, function.parameters[at].type, types[at]);
        if (FAILED(typed))
            return typed;
    }
    VARTYPE returnType = VT_EMPTY;
    HRESULT status = returnTypeOf(context, function, returnType);
    if (FAILED(status))
        return status;
    if (!isServed(function, types))
        return E_NOTIMPL;

    CallArguments arguments(types.size());
    status = bindArguments(function, types, parameters, result != nullptr, arguments);
    if (FAILED(status))
        return status;
    const ULONG_PTR slot = static_cast<ULONG_PTR>(function.vtableOffset) / pointerSize;
    VARIANT returned;
    VariantInit(&returned);
    status = DispCallFunc(instance, slot * sizeof(void*), function.callingConvention, returnType,
                          arguments.count(), arguments.types(), arguments.passed(), &returned);
    if (FAILED(status))
        return status;
    if (arguments.hasResult()) {
        VARIANT value = arguments.takeResult();
        if (result != nullptr)
            *result = value;
        else
            VariantClear(&value);
    }
    if (returnType == VT_ERROR) {
        if (FAILED(V_ERROR(&returned)))
            return reportException(V_ERROR(&returned), exception);
    }
    else if (result != nullptr) {
        VariantClear(result);
        *result = returned;
    }
    else {
        VariantClear(&returned);
    }
    if (parameters.cArgs != 0 && passesArgumentsOn(function, result != nullptr))
        return passOnToDefaultMember(flags, parameters, result, exception, argumentError);
    return S_OK;
}

}  // namespace automation::detail
