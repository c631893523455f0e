#include "objects/late_binding.h"

#include "late_binding/type_library.h"

#include <vector>

namespace sim::detail {
namespace {

// The arguments as their caller wrote them: DISPPARAMS holds the positional ones last to first,
// and the named ones (a property's new value) after them.
std::vector<VARTYPE> arrivedTypes(const DISPPARAMS& parameters)
{
    std::vector<VARTYPE> types;
    if (parameters.cNamedArgs > parameters.cArgs || (parameters.cArgs > 0 && parameters.rgvarg == nullptr))
        return types;  // the dispatcher refuses such a call before any member runs
    types.reserve(parameters.cArgs);
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = positional; i > 0; --i)
        types.push_back(V_VT(&parameters.rgvarg[parameters.cNamedArgs + i - 1]));
    for (UINT i = 0; i < parameters.cNamedArgs; ++i)
        types.push_back(V_VT(&parameters.rgvarg[i]));
    return types;
}

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

// The dispatcher refuses an argument it cannot coerce without saying which; the caller is told
// the first one in DISPPARAMS' order that does not convert to its declared type.
void locateMismatch(const FUNCDESC& function, const DISPPARAMS& parameters, UINT* argumentError)
{
    if (argumentError == nullptr)
        return;
    for (UINT i = 0; i < parameters.cArgs; ++i) {
        const UINT declaredAt = parameters.cArgs - 1 - i;
        if (declaredAt >= static_cast<UINT>(function.cParams))
            continue;
        const VARTYPE target = coercedType(function.lprgelemdescParam[declaredAt].tdesc);
        VARIANT converted;
        VariantInit(&converted);
        const bool converts =
            target == 0 || SUCCEEDED(VariantChangeType(&converted, &parameters.rgvarg[i], 0, target));
        VariantClear(&converted);
        if (!converts) {
            *argumentError = i;
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
    ITypeInfoPtr typeInfo;
    const HRESULT found = hostTypeInfo(interfaceId, &typeInfo);
    if (FAILED(found))
        return found;
    return DispGetIDsOfNames(typeInfo, names, count, ids);
}

HRESULT invokeByDispatchId(void* object, const IID& interfaceId, DISPID member, REFIID reserved, WORD flags,
                           DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr)
        return E_INVALIDARG;
    ITypeInfoPtr typeInfo;
    const HRESULT found = hostTypeInfo(interfaceId, &typeInfo);
    if (FAILED(found))
        return found;
    const CalledMember called(typeInfo, member, flags);
    // More arguments than the member takes are refused here, as a dispatcher may instead drop the
    // surplus silently: a caller that passed them meant another member.
    if (called && parameters->cArgs > static_cast<UINT>(called->cParams))
        return DISP_E_BADPARAMCOUNT;
    const HRESULT status = DispInvoke(object, typeInfo, member, flags, parameters, result, exception, argumentError);
    if (status == DISP_E_TYPEMISMATCH && called)
        locateMismatch(*called, *parameters, argumentError);
    return status;
}

LateBoundArrival::LateBoundArrival(HostCore* core, const DISPPARAMS* parameters) : m_core(core)
{
    if (m_core != nullptr && parameters != nullptr)
        m_core->lateBoundArrival = arrivedTypes(*parameters);
}

LateBoundArrival::~LateBoundArrival()
{
    if (m_core != nullptr)
        m_core->lateBoundArrival.reset();
}

}  // namespace sim::detail
