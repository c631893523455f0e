// ITypeInfo2 and ITypeComp over one type of a loaded library. A dual interface has two faces:
// the library gives its TKIND_DISPATCH face, whose functions begin with those it inherits from
// IUnknown and IDispatch; GetRefTypeInfo of the reference GetRefTypeOfImplType(-1) gives makes
// the TKIND_INTERFACE face (and back).
#pragma once

#include "type_library_object.h"

namespace automation::detail {

// The type information a type derives from, held while a walk goes down to it; the walks a thread
// is in count how deep it has gone.
class BaseType {
public:
    BaseType() { ++t_depth; }
    ~BaseType() { --t_depth; }
    BaseType(const BaseType&) = delete;
    BaseType& operator=(const BaseType&) = delete;

    bool tooDeep() const { return t_depth > kDeepest; }

    ITypeInfoPtr info;

private:
    static const int kDeepest = 64;
    static thread_local int t_depth;
};

class TypeInfoObject final : public ComObject<TypeInfoObject, ITypeInfo2, ITypeComp> {
public:
    // A type the library owns (its references keep the library alive), or with `detached` another
    // face of one, which deletes itself when its last reference goes.
    TypeInfoObject(TypeLibraryObject& library, const TypeModel& type, UINT index, TYPEKIND face, bool detached);
    TypeInfoObject(const TypeInfoObject&) = delete;
    TypeInfoObject& operator=(const TypeInfoObject&) = delete;
    ~TypeInfoObject();

    const TypeModel& type() const { return m_type; }
    TYPEKIND face() const { return m_face; }

    void* interfaceFor(REFIID iid);

    HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override;
    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** typeComp) override;
    HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** function) override;
    HRESULT STDMETHODCALLTYPE GetVarDesc(UINT index, VARDESC** variable) override;
    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT capacity, UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* reference) override;
    HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;
    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* docString, DWORD* helpContext,
                                               BSTR* helpFile) override;
    HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID member, INVOKEKIND kind, BSTR* dllName, BSTR* name,
                                          WORD* ordinal) override;
    HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE reference, ITypeInfo** typeInfo) override;
    HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID member, INVOKEKIND kind, PVOID* address) override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, PVOID* object) override;
    HRESULT STDMETHODCALLTYPE GetMops(MEMBERID member, BSTR* mops) override;
    HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) override;
    void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) override;
    void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* function) override;
    void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC* variable) override;

    HRESULT STDMETHODCALLTYPE GetTypeKind(TYPEKIND* kind) override;
    HRESULT STDMETHODCALLTYPE GetTypeFlags(ULONG* flags) override;
    HRESULT STDMETHODCALLTYPE GetFuncIndexOfMemId(MEMBERID member, INVOKEKIND kind, UINT* index) override;
    HRESULT STDMETHODCALLTYPE GetVarIndexOfMemId(MEMBERID member, UINT* index) override;
    HRESULT STDMETHODCALLTYPE GetCustData(REFGUID guid, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE GetFuncCustData(UINT index, REFGUID guid, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE GetParamCustData(UINT function, UINT parameter, REFGUID guid, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE GetVarCustData(UINT index, REFGUID guid, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE GetImplTypeCustData(UINT index, REFGUID guid, VARIANT* value) override;
    HRESULT STDMETHODCALLTYPE GetDocumentation2(MEMBERID member, LCID locale, BSTR* helpString,
                                                DWORD* helpStringContext, BSTR* helpStringDll) override;
    HRESULT STDMETHODCALLTYPE GetAllCustData(CUSTDATA* data) override;
    HRESULT STDMETHODCALLTYPE GetAllFuncCustData(UINT index, CUSTDATA* data) override;
    HRESULT STDMETHODCALLTYPE GetAllParamCustData(UINT function, UINT parameter, CUSTDATA* data) override;
    HRESULT STDMETHODCALLTYPE GetAllVarCustData(UINT index, CUSTDATA* data) override;
    HRESULT STDMETHODCALLTYPE GetAllImplTypeCustData(UINT index, CUSTDATA* data) override;

    HRESULT STDMETHODCALLTYPE Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** typeInfo, DESCKIND* kind,
                                   BINDPTR* bound) override;
    HRESULT STDMETHODCALLTYPE BindType(LPOLESTR name, ULONG hash, ITypeInfo** typeInfo,
                                       ITypeComp** typeComp) override;

private:
    friend ComObject;
    // The first reference holds the library, so that a type information keeps its library alive;
    // the last lets it go, deleting this object first when the library does not own it.
    void referenceAdded(ULONG count);
    void lastReferenceGone();

    // The type information of the type this one derives from (its first implemented type).
    HRESULT base(BaseType& base);
    // Function `index` of a dispinterface, counting the functions of the types it derives from
    // first; `count` gets how many there are, `offset` what its references must be offset by.
    HRESULT dispatchFunction(UINT index, bool outermost, UINT& count, HREFTYPE& offset, FUNCDESC** function);
    HRESULT dispatchReference(HREFTYPE& reference, ITypeInfo** typeInfo);
    const FunctionModel* functionOf(MEMBERID member) const;
    const VariableModel* variableOf(MEMBERID member) const;

    TypeLibraryObject& m_library;
    const TypeModel& m_type;
    const UINT m_index;
    const TYPEKIND m_face;
    const bool m_detached;
};

// Our own type information behind `typeInfo`; null for any other object.
TypeInfoObject* typeInfoObject(ITypeInfo* typeInfo);

}  // namespace automation::detail
