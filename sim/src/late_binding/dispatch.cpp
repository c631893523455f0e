#include "late_binding/dispatch.h"

#include "late_binding/type_library.h"

#include <optional>
#include <utility>
#include <vector>

namespace sim::detail {
namespace {

// The type a declared parameter is coerced to; 0 for those the dispatcher passes as given.
VARTYPE coercedType(const TYPEDESC& declared)
{
    if (declared.vt == VT_USERDEFINED)
        return VT_I4;  // the host's only user-defined parameter type is an enumeration
    if (declared.vt == VT_VARIANT || declared.vt == VT_PTR)
        return 0;
    return declared.vt;
}

// The description of the member a call names (of that DISPID, called in one of the ways `flags`
// allows), released with it; empty when the interface has no such member.
class CalledMember {
public:
    CalledMember(ITypeInfo* typeInfo, DISPID member, WORD flags) : m_typeInfo(typeInfo)
    {
        TYPEATTR* attributes = nullptr;
        if (FAILED(typeInfo->GetTypeAttr(&attributes)))
            return;
        const UINT functions = attributes->cFuncs;
        typeInfo->ReleaseTypeAttr(attributes);
        for (UINT f = 0; f < functions && m_function == nullptr; ++f) {
            FUNCDESC* function = nullptr;
            if (FAILED(typeInfo->GetFuncDesc(f, &function)))
                continue;
            if (function->memid == member && (function->invkind & flags) != 0)
                m_function = function;
            else
                typeInfo->ReleaseFuncDesc(function);
        }
    }
    ~CalledMember()
    {
        if (m_function != nullptr)
            m_typeInfo->ReleaseFuncDesc(m_function);
    }
    CalledMember(const CalledMember&) = delete;
    CalledMember& operator=(const CalledMember&) = delete;

    explicit operator bool() const { return m_function != nullptr; }
    const FUNCDESC& operator*() const { return *m_function; }
    const FUNCDESC* operator->() const { return m_function; }

private:
    ITypeInfo* m_typeInfo;
    FUNCDESC* m_function = nullptr;
};

// The arguments as their caller wrote them: DISPPARAMS holds the positional ones last to first,
// and the named ones (a property's new value) after them.
std::vector<VARTYPE> typesAsWritten(const DISPPARAMS& parameters)
{
    std::vector<VARTYPE> types;
    types.reserve(parameters.cArgs);
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = positional; i > 0; --i)
        types.push_back(V_VT(&parameters.rgvarg[parameters.cNamedArgs + i - 1]));
    for (UINT i = 0; i < parameters.cNamedArgs; ++i)
        types.push_back(V_VT(&parameters.rgvarg[i]));
    return types;
}

// The variant types a call's member receives: none for a property get without parameters, which
// passes what it is given on to the default member of the object it gives.
std::vector<VARTYPE> arrivedTypes(const DISPPARAMS* parameters, const FUNCDESC* called)
{
    if (parameters == nullptr || parameters->cNamedArgs > parameters->cArgs ||
        (parameters->cArgs > 0 && parameters->rgvarg == nullptr))
        return {};  // the dispatcher refuses such a call before any member runs
    if (called != nullptr && called->cParams == 0 && (called->invkind & INVOKE_PROPERTYGET) != 0)
        return {};
    return typesAsWritten(*parameters);
}

// While it lives, the host (if any) knows the call in progress as late-bound. A call the
// dispatcher makes while serving it (a default member's, or one that converts an object argument
// by its default value) marks its own arrival and gives the pending one back after it.
class LateBoundArrival {
public:
    LateBoundArrival(HostCore* core, std::vector<VARTYPE> types) : m_core(core)
    {
        if (m_core != nullptr)
            m_pending = std::exchange(m_core->lateBoundArrival, std::move(types));
    }
    ~LateBoundArrival()
    {
        if (m_core != nullptr)
            m_core->lateBoundArrival = std::move(m_pending);
    }
    LateBoundArrival(const LateBoundArrival&) = delete;
    LateBoundArrival& operator=(const LateBoundArrival&) = delete;

private:
    HostCore* m_core;
    std::optional<std::vector<VARTYPE>> m_pending;
};

// The argument a dispatcher hands to declared parameter `at` of `function`: the named one for
// its position (the last parameter's also the value named DISPID_PROPERTYPUT), else the next
// positional one, counted by `positionalTaken`; -1 when there is none.
int argumentFor(const FUNCDESC& function, const DISPPARAMS& parameters, UINT at, UINT& positionalTaken)
{
    for (UINT j = 0; j < parameters.cNamedArgs; ++j) {
        const DISPID name = parameters.rgdispidNamedArgs[j];
        if (name == static_cast<DISPID>(at) ||
            (at + 1 == static_cast<UINT>(function.cParams) && name == DISPID_PROPERTYPUT))
            return static_cast<int>(j);
    }
    if (positionalTaken + parameters.cNamedArgs < parameters.cArgs)
        return static_cast<int>(parameters.cArgs - 1 - positionalTaken++);
    return -1;
}

// The dispatcher refuses an argument it cannot coerce without saying which; the caller is told
// the one it stopped at, the first in declared order that does not convert to its parameter's type.
void locateMismatch(const FUNCDESC& function, const DISPPARAMS& parameters, UINT* argumentError)
{
    if (argumentError == nullptr)
        return;
    UINT positionalTaken = 0;
    for (UINT at = 0; at < static_cast<UINT>(function.cParams); ++at) {
        const int given = argumentFor(function, parameters, at, positionalTaken);
        const VARTYPE target = coercedType(function.lprgelemdescParam[at].tdesc);
        if (given < 0 || target == 0)
            continue;
        VARIANT converted;
        VariantInit(&converted);
        const bool converts = SUCCEEDED(VariantChangeType(&converted, &parameters.rgvarg[given], 0, target));
        VariantClear(&converted);
        if (!converts) {
            *argumentError = static_cast<UINT>(given);
            return;
        }
    }
}

}  // namespace

HRESULT giveTypeInfoCount(UINT* count)
{
    if (count == nullptr)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT giveTypeInfo(const IID& interfaceId, UINT index, ITypeInfo** typeInfo)
{
    if (typeInfo == nullptr)
        return E_POINTER;
    *typeInfo = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return hostTypeInfo(interfaceId, typeInfo);
}

HRESULT findDispatchIds(const IID& interfaceId, REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids)
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr)
        return E_INVALIDARG;
    ITypeInfoPtr typeInfo;
    const HRESULT found = hostTypeInfo(interfaceId, &typeInfo);
    if (FAILED(found))
        return found;
    return DispGetIDsOfNames(typeInfo, names, count, ids);
}

HRESULT invokeByDispatchId(HostCore* core, void* object, const IID& interfaceId, DISPID member,
                           REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT* argumentError)
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    ITypeInfoPtr typeInfo;
    const HRESULT found = hostTypeInfo(interfaceId, &typeInfo);
    if (FAILED(found))
        return found;
    const CalledMember called(typeInfo, member, flags);
    const LateBoundArrival arrival(core, arrivedTypes(parameters, called ? &*called : nullptr));
    const HRESULT status =
        DispInvoke(object, typeInfo, member, flags, parameters, result, exception, argumentError);
    if (status == DISP_E_TYPEMISMATCH && called)
        locateMismatch(*called, *parameters, argumentError);
    return status;
}

}  // namespace sim::detail
