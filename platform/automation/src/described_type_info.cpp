// Type information served from a compiled-in description, and the dispatcher that serves
// late-bound calls from it, with the platform dispatcher's answers to bad calls.
#include "automation.h"
#include "automation/com_object.h"

#include <cwctype>
#include <vector>

namespace {

bool sameName(const wchar_t* a, const wchar_t* b)
{
    for (; *a != L'\0' && *b != L'\0'; ++a, ++b) {
        if (std::towlower(static_cast<wint_t>(*a)) != std::towlower(static_cast<wint_t>(*b)))
            return false;
    }
    return *a == *b;
}

// The type an argument of a declared type is coerced to before the call.
VARTYPE coercedType(VARTYPE declared)
{
    return declared == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : declared;
}

// The arguments of one call in declared order, owning what coercion made.
class CallArguments {
public:
    explicit CallArguments(size_t count) : m_values(count)
    {
        for (VARIANT& value : m_values)
            VariantInit(&value);
        m_owned.assign(count, false);
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

    // A declared VARIANT is the caller's own variant, passed as it is.
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

// Where each declared parameter's argument is in DISPPARAMS (its index), or -1 when it was left
// out. Positional arguments come last to first; a named one names its parameter's position, and a
// property's new value is named DISPID_PROPERTYPUT and is the last parameter.
HRESULT locateArguments(const DescribedMember& member, const DISPPARAMS& parameters, std::vector<int>& at)
{
    const UINT declared = static_cast<UINT>(member.parameterCount);
    if (parameters.cArgs > declared || parameters.cNamedArgs > parameters.cArgs)
        return DISP_E_BADPARAMCOUNT;
    if (parameters.cNamedArgs > 0 && parameters.rgdispidNamedArgs == nullptr)
        return E_INVALIDARG;
    at.assign(declared, -1);
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = 0; i < positional; ++i)
        at[i] = static_cast<int>(parameters.cArgs - 1 - i);
    for (UINT j = 0; j < parameters.cNamedArgs; ++j) {
        const DISPID name = parameters.rgdispidNamedArgs[j];
        const DISPID parameter = name == DISPID_PROPERTYPUT ? static_cast<DISPID>(declared) - 1 : name;
        if (parameter < 0 || parameter >= static_cast<DISPID>(declared) || at[parameter] != -1)
            return DISP_E_PARAMNOTFOUND;
        at[parameter] = static_cast<int>(j);
    }
    return S_OK;
}

// The failure of the member itself, as a caller of Invoke sees it: the exception its error
// information describes.
HRESULT reportException(HRESULT failure, EXCEPINFO* exception)
{
    if (exception == nullptr)
        return DISP_E_EXCEPTION;
    *exception = EXCEPINFO{};
    exception->scode = failure;
    IErrorInfoPtr error;
    if (GetErrorInfo(0, &error) == S_OK && error) {
        error->GetSource(&exception->bstrSource);
        error->GetDescription(&exception->bstrDescription);
        error->GetHelpFile(&exception->bstrHelpFile);
        error->GetHelpContext(&exception->dwHelpContext);
    }
    return DISP_E_EXCEPTION;
}

class DescribedTypeInfo final : public automation::ComObject<DescribedTypeInfo, ITypeInfo> {
public:
    explicit DescribedTypeInfo(const DescribedInterface& described) : m_described(described) {}

    void* interfaceFor(REFIID iid)
    {
        return iid == IID_IUnknown || iid == __uuidof(ITypeInfo) ? static_cast<ITypeInfo*>(this) : nullptr;
    }

    HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override
    {
        if (attributes == nullptr)
            return E_INVALIDARG;
        *attributes = new TYPEATTR{*m_described.iid, TKIND_DISPATCH, static_cast<WORD>(m_described.memberCount), 0,
                                   TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE};
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** function) override
    {
        if (function == nullptr)
            return E_INVALIDARG;
        *function = nullptr;
        if (index >= m_described.memberCount)
            return TYPE_E_ELEMENTNOTFOUND;
        const DescribedMember& member = m_described.members[index];
        auto* parameters = new ELEMDESC[member.parameterCount > 0 ? member.parameterCount : 1];
        SHORT optional = 0;
        for (SHORT i = 0; i < member.parameterCount; ++i) {
            parameters[i] = ELEMDESC{{member.parameters[i].type}, {member.parameters[i].flags}};
            optional += (member.parameters[i].flags & PARAMFLAG_FOPT) != 0 ? 1 : 0;
        }
        *function = new FUNCDESC{member.id,        parameters, FUNC_DISPATCH, member.kind, member.parameterCount,
                                 optional,         ELEMDESC{{member.resultType}, {PARAMFLAG_NONE}},
                                 member.flags};
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID id, BSTR* names, UINT capacity, UINT* count) override
    {
        if (names == nullptr || count == nullptr)
            return E_INVALIDARG;
        *count = 0;
        const DescribedMember* member = find(id, INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT);
        if (member == nullptr)
            return TYPE_E_ELEMENTNOTFOUND;
        for (SHORT i = -1; i < member->parameterCount && *count < capacity; ++i)
            names[(*count)++] = SysAllocString(i < 0 ? member->name : member->parameters[i].name);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override
    {
        if (names == nullptr || ids == nullptr || count == 0)
            return E_INVALIDARG;
        for (UINT i = 0; i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        const DescribedMember* member = nullptr;
        for (UINT m = 0; m < m_described.memberCount && member == nullptr; ++m) {
            if (sameName(m_described.members[m].name, names[0]))
                member = &m_described.members[m];
        }
        if (member == nullptr)
            return DISP_E_UNKNOWNNAME;
        ids[0] = member->id;
        HRESULT status = S_OK;
        for (UINT i = 1; i < count; ++i) {
            for (SHORT p = 0; p < member->parameterCount && ids[i] == DISPID_UNKNOWN; ++p) {
                if (sameName(member->parameters[p].name, names[i]))
                    ids[i] = p;
            }
            if (ids[i] == DISPID_UNKNOWN)
                status = DISP_E_UNKNOWNNAME;
        }
        return status;
    }

    HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID id, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override
    {
        if (instance == nullptr || parameters == nullptr)
            return E_INVALIDARG;
        const DescribedMember* member = find(id, flags);
        if (member == nullptr)
            return DISP_E_MEMBERNOTFOUND;
        std::vector<int> at;
        const HRESULT located = locateArguments(*member, *parameters, at);
        if (FAILED(located))
            return located;
        CallArguments arguments(at.size());
        for (size_t i = 0; i < at.size(); ++i) {
            const DescribedParameter& declared = member->parameters[i];
            if (at[i] < 0) {
                if ((declared.flags & PARAMFLAG_FOPT) == 0)
                    return DISP_E_BADPARAMCOUNT;
                arguments.passMissing(i);
                continue;
            }
            const VARIANT& given = parameters->rgvarg[at[i]];
            if (declared.type == VT_VARIANT) {
                arguments.passAsGiven(i, given);
                continue;
            }
            const HRESULT coerced = arguments.passCoerced(i, given, coercedType(declared.type));
            if (FAILED(coerced)) {
                if (argumentError != nullptr)
                    *argumentError = static_cast<UINT>(at[i]);
                return coerced == DISP_E_OVERFLOW ? coerced : DISP_E_TYPEMISMATCH;
            }
        }
        VARIANT given;
        VariantInit(&given);
        const HRESULT status = member->call(instance, arguments.values(), &given);
        if (FAILED(status))
            return reportException(status, exception);
        if (result != nullptr)
            *result = given;
        else
            VariantClear(&given);
        return status;
    }

    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID id, BSTR* name, BSTR* docString, DWORD* helpContext,
                                               BSTR* helpFile) override
    {
        const wchar_t* named = m_described.name;
        if (id != MEMBERID_NIL) {
            const DescribedMember* member = find(id, INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT);
            if (member == nullptr)
                return TYPE_E_ELEMENTNOTFOUND;
            named = member->name;
        }
        if (name != nullptr)
            *name = SysAllocString(named);
        if (docString != nullptr)
            *docString = nullptr;
        if (helpContext != nullptr)
            *helpContext = 0;
        if (helpFile != nullptr)
            *helpFile = nullptr;
        return S_OK;
    }

    void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) override { delete attributes; }
    void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* function) override
    {
        if (function != nullptr)
            delete[] function->lprgelemdescParam;
        delete function;
    }

private:
    friend ComObject;  // only the last Release deletes it
    ~DescribedTypeInfo() = default;

    // The member of that DISPID that answers one of the ways of calling in `flags`.
    const DescribedMember* find(MEMBERID id, WORD flags) const
    {
        for (UINT m = 0; m < m_described.memberCount; ++m) {
            const DescribedMember& member = m_described.members[m];
            if (member.id == id && (member.kind & flags) != 0)
                return &member;
        }
        return nullptr;
    }

    const DescribedInterface& m_described;
};

}  // namespace

HRESULT CreateDescribedTypeInfo(const DescribedInterface* described, ITypeInfo** typeInfo)
{
    if (described == nullptr || typeInfo == nullptr)
        return E_INVALIDARG;
    *typeInfo = new DescribedTypeInfo(*described);
    return S_OK;
}

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
