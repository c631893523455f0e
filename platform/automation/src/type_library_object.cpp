#include "type_library_object.h"

#include "type_descriptions.h"
#include "type_info_object.h"
#include "type_text.h"

#include <cwchar>

namespace automation::detail {

TypeLibraryObject::TypeLibraryObject(std::unique_ptr<const LibraryModel> model)
    : m_model(std::move(model)), m_imports(m_model->imports.size())
{
    for (size_t t = 0; t < m_model->types.size(); ++t) {
        const TypeModel& type = m_model->types[t];
        m_typeInfos.push_back(std::make_unique<TypeInfoObject>(*this, type, static_cast<UINT>(t), type.kind, false));
    }
}

TypeLibraryObject::~TypeLibraryObject() = default;

void* TypeLibraryObject::interfaceFor(REFIID iid)
{
    if (iid == IID_IUnknown || iid == IID_ITypeLib)
        return static_cast<ITypeLib*>(this);
    if (iid == IID_ITypeComp)
        return static_cast<ITypeComp*>(this);
    return nullptr;
}

HRESULT TypeLibraryObject::importedLibrary(size_t index, ITypeLibPtr& library)
{
    const std::lock_guard<std::mutex> lock(m_importsLock);
    if (!m_imports[index]) {
        const ImportedLibraryModel& imported = m_model->imports[index];
        if (imported.guid == kStandardLibraryGuid) {
            m_imports[index] = standardLibrary();
        } else {
            const std::wstring::size_type slash = m_model->path.find_last_of(L'/');
            const std::wstring beside =
                (slash == std::wstring::npos ? std::wstring() : m_model->path.substr(0, slash + 1)) + imported.fileName;
            ITypeLib* loaded = nullptr;
            const HRESULT status = LoadTypeLibEx(beside.c_str(), REGKIND_NONE, &loaded);
            if (FAILED(status))
                return status;
            m_imports[index].Attach(loaded);
        }
    }
    library = m_imports[index];
    return S_OK;
}

HRESULT TypeLibraryObject::resolve(HREFTYPE reference, ITypeInfo** typeInfo)
{
    const HREFTYPE plain = reference & ~static_cast<HREFTYPE>(3);
    if ((reference & 1) == 0) {
        for (const auto& candidate : m_typeInfos) {
            if (candidate->type().reference == plain) {
                *typeInfo = candidate.get();
                candidate->AddRef();
                return S_OK;
            }
        }
    }
    for (const ImportedTypeModel& imported : m_model->importedTypes) {
        if (imported.reference != plain)
            continue;
        ITypeLibPtr library;
        const HRESULT status = importedLibrary(imported.library, library);
        if (FAILED(status))
            return status;
        return imported.guid ? library->GetTypeInfoOfGuid(*imported.guid, typeInfo)
                             : library->GetTypeInfo(imported.index, typeInfo);
    }
    return E_FAIL;
}

UINT TypeLibraryObject::GetTypeInfoCount() { return static_cast<UINT>(m_typeInfos.size()); }

HRESULT TypeLibraryObject::GetTypeInfo(UINT index, ITypeInfo** typeInfo)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    if (index >= m_typeInfos.size())
        return TYPE_E_ELEMENTNOTFOUND;
    *typeInfo = m_typeInfos[index].get();
    (*typeInfo)->AddRef();
    return S_OK;
}

HRESULT TypeLibraryObject::GetTypeInfoType(UINT index, TYPEKIND* kind)
{
    if (kind == nullptr)
        return E_INVALIDARG;
    if (index >= m_typeInfos.size())
        return TYPE_E_ELEMENTNOTFOUND;
    *kind = m_model->types[index].kind;
    return S_OK;
}

HRESULT TypeLibraryObject::GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** typeInfo)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    for (const auto& candidate : m_typeInfos) {
        if (candidate->type().guid == guid) {
            *typeInfo = candidate.get();
            candidate->AddRef();
            return S_OK;
        }
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeLibraryObject::GetLibAttr(TLIBATTR** attributes)
{
    if (attributes == nullptr)
        return E_INVALIDARG;
    *attributes = new TLIBATTR{m_model->guid,         m_model->typeLocale,   m_model->system,
                               m_model->majorVersion, m_model->minorVersion, m_model->flags};
    return S_OK;
}

void TypeLibraryObject::ReleaseTLibAttr(TLIBATTR* attributes) { delete attributes; }

HRESULT TypeLibraryObject::GetTypeComp(ITypeComp** typeComp)
{
    if (typeComp == nullptr)
        return E_INVALIDARG;
    *typeComp = this;
    AddRef();
    return S_OK;
}

HRESULT TypeLibraryObject::GetDocumentation(INT index, BSTR* name, BSTR* docString, DWORD* helpContext,
                                            BSTR* helpFile)
{
    if (index >= 0) {
        ITypeInfoPtr typeInfo;
        const HRESULT status = GetTypeInfo(static_cast<UINT>(index), &typeInfo);
        if (FAILED(status))
            return status;
        return typeInfo->GetDocumentation(MEMBERID_NIL, name, docString, helpContext, helpFile);
    }
    if (name != nullptr)
        *name = allocateText(m_model->name);
    if (docString != nullptr)
        *docString = allocateText(m_model->docString);
    if (helpContext != nullptr)
        *helpContext = m_model->helpContext;
    if (helpFile != nullptr)
        *helpFile = allocateText(m_model->helpFile);
    return S_OK;
}

// Whether a type, member or parameter of the library has the name; the name is compared with
// regard to case, as the platform does.
HRESULT TypeLibraryObject::IsName(LPOLESTR name, ULONG, BOOL* found)
{
    if (name == nullptr || found == nullptr)
        return E_INVALIDARG;
    auto is = [name](const OptionalText& text) { return text && *text == name; };
    *found = TRUE;
    for (const TypeModel& type : m_model->types) {
        if (is(type.name))
            return S_OK;
        for (const FunctionModel& function : type.functions) {
            if (is(function.name))
                return S_OK;
            for (const ParameterModel& parameter : function.parameters) {
                if (is(parameter.name))
                    return S_OK;
            }
        }
        for (const VariableModel& variable : type.variables) {
            if (is(variable.name))
                return S_OK;
        }
    }
    *found = FALSE;
    return S_OK;
}

// The types that have the name, or a member of that name (MEMBERID_NIL for the type itself), as
// many as `found` allows; `found` gets how many there were.
HRESULT TypeLibraryObject::FindName(LPOLESTR name, ULONG, ITypeInfo** typeInfos, MEMBERID* ids, USHORT* found)
{
    if (name == nullptr || typeInfos == nullptr || ids == nullptr || found == nullptr)
        return E_INVALIDARG;
    USHORT count = 0;
    for (size_t t = 0; t < m_typeInfos.size() && count < *found; ++t) {
        const TypeModel& type = m_model->types[t];
        std::optional<MEMBERID> id;
        if (type.name && *type.name == name) {
            id = MEMBERID_NIL;
        } else {
            for (const FunctionModel& function : type.functions) {
                if (function.name && *function.name == name) {
                    id = function.id;
                    break;
                }
            }
            for (size_t v = 0; !id && v < type.variables.size(); ++v) {
                if (sameName(type.variables[v].name, name))
                    id = type.variables[v].id;
            }
        }
        if (!id)
            continue;
        ids[count] = *id;
        typeInfos[count] = m_typeInfos[t].get();
        typeInfos[count]->AddRef();
        ++count;
    }
    *found = count;
    return S_OK;
}

// The library binds the names of its enumerations and modules, and of their members.
HRESULT TypeLibraryObject::Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** typeInfo, DESCKIND* kind,
                                BINDPTR* bound)
{
    if (name == nullptr || typeInfo == nullptr || kind == nullptr || bound == nullptr)
        return E_INVALIDARG;
    *kind = DESCKIND_NONE;
    bound->lptcomp = nullptr;
    *typeInfo = nullptr;
    bool mismatched = false;
    for (const auto& candidate : m_typeInfos) {
        const TypeModel& type = candidate->type();
        if (type.kind != TKIND_ENUM && type.kind != TKIND_MODULE)
            continue;
        if (type.name && *type.name == name) {
            *kind = DESCKIND_TYPECOMP;
            ITypeComp* typeComp = nullptr;
            candidate->GetTypeComp(&typeComp);
            bound->lptcomp = typeComp;
            return S_OK;
        }
        const HRESULT status = candidate->Bind(name, hash, flags, typeInfo, kind, bound);
        if (SUCCEEDED(status) && *kind != DESCKIND_NONE)
            return S_OK;
        if (status == TYPE_E_TYPEMISMATCH)
            mismatched = true;
    }
    return mismatched ? TYPE_E_TYPEMISMATCH : S_OK;
}

HRESULT TypeLibraryObject::BindType(LPOLESTR name, ULONG, ITypeInfo** typeInfo, ITypeComp** typeComp)
{
    if (name == nullptr || typeInfo == nullptr || typeComp == nullptr)
        return E_INVALIDARG;
    *typeInfo = nullptr;
    *typeComp = nullptr;
    for (const auto& candidate : m_typeInfos) {
        if (sameName(candidate->type().name, name)) {
            *typeInfo = candidate.get();
            candidate->AddRef();
            return candidate->GetTypeComp(typeComp);
        }
    }
    return S_OK;
}

}  // namespace automation::detail
