// Type information served from a compiled-in description; its Invoke is the described
// interface's dispatcher (described_dispatch.h).
#include "automation.h"
#include "automation/com_object.h"

#include "described_dispatch.h"
#include "described_members.h"

namespace {

using automation::detail::findMember;
using automation::detail::inheritedDispatchMembers;
using automation::detail::memberNamed;
using automation::detail::sameName;

// The position of the parameter called `name` among `member`'s, its result's last as in the type
// library; DISPID_UNKNOWN for none.
DISPID parameterNamed(const DescribedMember& member, const wchar_t* name)
{
    for (SHORT p = 0; p < member.parameterCount; ++p) {
        if (sameName(member.parameters[p].name, name))
            return p;
    }
    if (member.resultName != nullptr && sameName(member.resultName, name))
        return member.parameterCount;
    return DISPID_UNKNOWN;
}

const WORD kAnyWay = INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;

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
        *attributes = new TYPEATTR{};
        (*attributes)->guid = *m_described.iid;
        (*attributes)->typekind = TKIND_DISPATCH;
        (*attributes)->cFuncs = static_cast<WORD>(m_described.memberCount);
        (*attributes)->wTypeFlags = TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE;
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
        auto* parameters = new ELEMDESC[member.parameterCount > 0 ? member.parameterCount : 1]{};
        SHORT optional = 0;
        for (SHORT i = 0; i < member.parameterCount; ++i) {
            parameters[i].tdesc.vt = member.parameters[i].type;
            parameters[i].paramdesc.wParamFlags = member.parameters[i].flags;
            optional += (member.parameters[i].flags & PARAMFLAG_FOPT) != 0 ? 1 : 0;
        }
        *function = new FUNCDESC{};
        (*function)->memid = member.id;
        (*function)->lprgelemdescParam = parameters;
        (*function)->funckind = FUNC_DISPATCH;
        (*function)->invkind = member.kind;
        (*function)->cParams = member.parameterCount;
        (*function)->cParamsOpt = optional;
        (*function)->elemdescFunc.tdesc.vt = member.resultType;
        (*function)->wFuncFlags = member.flags;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID id, BSTR* names, UINT capacity, UINT* count) override
    {
        if (names == nullptr || count == nullptr)
            return E_INVALIDARG;
        *count = 0;
        const DescribedMember* member = findMember(m_described, id, kAnyWay);
        if (member == nullptr)
            return TYPE_E_ELEMENTNOTFOUND;
        for (SHORT i = -1; i < member->parameterCount && *count < capacity; ++i)
            names[(*count)++] = SysAllocString(i < 0 ? member->name : member->parameters[i].name);
        return S_OK;
    }

    // Names as the platform finds them: the member first in declared order, else one inherited from
    // IUnknown or IDispatch; the other names among that member's parameters. The first name is
    // looked up even when no id is asked for (`count` 0), as the platform does.
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override
    {
        if (names == nullptr || (ids == nullptr && count > 0))
            return E_INVALIDARG;
        for (UINT i = 0; i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        const DescribedMember* member = memberNamed(m_described, names[0]);
        if (member == nullptr)
            member = memberNamed(inheritedDispatchMembers(), names[0]);
        if (member == nullptr)
            return DISP_E_UNKNOWNNAME;
        if (count == 0)
            return S_OK;
        ids[0] = member->id;
        HRESULT status = S_OK;
        for (UINT i = 1; i < count; ++i) {
            ids[i] = parameterNamed(*member, names[i]);
            if (ids[i] == DISPID_UNKNOWN)
                status = DISP_E_UNKNOWNNAME;
        }
        return status;
    }

    HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID id, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override
    {
        return automation::detail::invokeDescribed(m_described, instance, id, flags, parameters, result,
                                                   exception, argumentError);
    }

    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID id, BSTR* name, BSTR* docString, DWORD* helpContext,
                                               BSTR* helpFile) override
    {
        const wchar_t* named = m_described.name;
        if (id != MEMBERID_NIL) {
            const DescribedMember* member = findMember(m_described, id, kAnyWay);
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

    // The compiled-in description answers only what the dispatcher and its callers read.
    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
    void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}

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
