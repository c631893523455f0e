// ITypeLib over a library read from its file (or the standard library the runtime describes), and
// the ITypeComp that binds the names of its types.
#pragma once

#include "automation/com_object.h"
#include "type_library_model.h"

#include <memory>
#include <mutex>
#include <vector>

namespace automation::detail {

class TypeInfoObject;

class TypeLibraryObject final : public ComObject<TypeLibraryObject, ITypeLib, ITypeComp> {
public:
    explicit TypeLibraryObject(std::unique_ptr<const LibraryModel> model);

    void* interfaceFor(REFIID iid);

    const LibraryModel& model() const { return *m_model; }
    TypeInfoObject& typeInfo(size_t index) const { return *m_typeInfos[index]; }
    // The bytes of a pointer in the library's system: what vtable sizes count in.
    WORD pointerSize() const { return m_model->system == SYS_WIN64 ? 8 : 4; }

    // The type a reference of this library's own names (`reference` without the flags a type
    // information adds): one of its types, or one it imports, loading the importing library on
    // first demand. E_FAIL for a reference to nothing.
    HRESULT resolve(HREFTYPE reference, ITypeInfo** typeInfo);

    UINT STDMETHODCALLTYPE GetTypeInfoCount() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** typeInfo) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT index, TYPEKIND* kind) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** typeInfo) override;
    HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR** attributes) override;
    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** typeComp) override;
    HRESULT STDMETHODCALLTYPE GetDocumentation(INT index, BSTR* name, BSTR* docString, DWORD* helpContext,
                                               BSTR* helpFile) override;
    HRESULT STDMETHODCALLTYPE IsName(LPOLESTR name, ULONG hash, BOOL* found) override;
    HRESULT STDMETHODCALLTYPE FindName(LPOLESTR name, ULONG hash, ITypeInfo** typeInfos, MEMBERID* ids,
                                       USHORT* found) override;
    void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR* attributes) override;

    HRESULT STDMETHODCALLTYPE Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** typeInfo, DESCKIND* kind,
                                   BINDPTR* bound) override;
    HRESULT STDMETHODCALLTYPE BindType(LPOLESTR name, ULONG hash, ITypeInfo** typeInfo,
                                       ITypeComp** typeComp) override;

private:
    friend ComObject;  // only the last Release deletes it
    ~TypeLibraryObject();

    HRESULT importedLibrary(size_t index, ITypeLibPtr& library);

    std::unique_ptr<const LibraryModel> m_model;
    std::vector<std::unique_ptr<TypeInfoObject>> m_typeInfos;
    std::mutex m_importsLock;
    std::vector<ITypeLibPtr> m_imports;  // loaded on first demand
};

// The library the runtime describes itself for imports of the standard library's GUID, kept for
// the life of the process.
ITypeLib* standardLibrary();

// What the standard library holds of IUnknown and IDispatch, for standardLibrary().
std::unique_ptr<const LibraryModel> standardLibraryModel();

}  // namespace automation::detail
