#include "type_info_object.h"

#include "member_call.h"
#include "type_descriptions.h"
#include "type_text.h"

namespace automation::detail {
namespace {

// Inherited members of a dispinterface name their types with references offset by this much
// per level of derivation, so that the dispinterface can tell which type's reference it is.
const HREFTYPE kDispatchReferenceOffset = 0x01000000;
const HREFTYPE kDispatchReferenceMask = 0xFF000000;
const UINT kDispatchFunctionCount = 7;  // IUnknown's three and IDispatch's four
const HREFTYPE kOtherFace = static_cast<HREFTYPE>(-2);

const CustomDatum* customDatum(const CustomData& data, REFGUID guid)
{
    for (const CustomDatum& datum : data) {
        if (datum.guid == guid)
            return &datum;
    }
    return nullptr;
}

// Custom data of `guid`: an empty value when there is none.
HRESULT copyMemberDatum(const CustomData& data, REFGUID guid, VARIANT* value)
{
    VariantInit(value);
    const CustomDatum* datum = customDatum(data, guid);
    return datum == nullptr ? S_OK : VariantCopy(value, const_cast<_variant_t*>(&datum->value));
}

HRESULT copyAllData(const CustomData& data, CUSTDATA* copied)
{
    if (copied == nullptr)
        return E_INVALIDARG;
    copied->prgCustData = static_cast<CUSTDATAITEM*>(CoTaskMemAlloc(data.size() * sizeof(CUSTDATAITEM)));
    if (copied->prgCustData == nullptr)
        return E_OUTOFMEMORY;
    copied->cCustData = static_cast<DWORD>(data.size());
    for (size_t i = 0; i < data.size(); ++i) {
        copied->prgCustData[i].guid = data[i].guid;
        VariantInit(&copied->prgCustData[i].varValue);
        VariantCopy(&copied->prgCustData[i].varValue, const_cast<_variant_t*>(&data[i].value));
    }
    return S_OK;
}

}  // namespace

TypeInfoObject* typeInfoObject(ITypeInfo* typeInfo) { return dynamic_cast<TypeInfoObject*>(typeInfo); }

TypeInfoObject::TypeInfoObject(TypeLibraryObject& library, const TypeModel& type, UINT index, TYPEKIND face,
                               bool detached)
    : ComObject(0), m_library(library), m_type(type), m_index(index), m_face(face), m_detached(detached)
{
}

TypeInfoObject::~TypeInfoObject() = default;

void* TypeInfoObject::interfaceFor(REFIID iid)
{
    if (iid == IID_IUnknown || iid == IID_ITypeInfo || iid == IID_ITypeInfo2)
        return static_cast<ITypeInfo2*>(this);
    if (iid == IID_ITypeComp)
        return static_cast<ITypeComp*>(this);
    return nullptr;
}

void TypeInfoObject::referenceAdded(ULONG count)
{
    if (count == 1)
        m_library.AddRef();
}

void TypeInfoObject::lastReferenceGone()
{
    TypeLibraryObject& library = m_library;
    if (m_detached)
        delete this;
    library.Release();  // may delete the library and with it this object
}

HRESULT TypeInfoObject::GetTypeAttr(TYPEATTR** attributes)
{
    if (attributes == nullptr)
        return E_INVALIDARG;
    TYPEATTR* a = newTypeAttributes(m_type.alias);
    a->guid = m_type.guid;
    a->lcid = m_library.model().typeLocale;
    a->memidConstructor = MEMBERID_NIL;
    a->memidDestructor = MEMBERID_NIL;
    a->cbSizeInstance = m_type.instanceSize;
    a->typekind = m_face;
    a->cFuncs = static_cast<WORD>(m_type.functions.size());
    a->cVars = static_cast<WORD>(m_type.variables.size());
    a->cImplTypes = static_cast<WORD>(m_type.implemented.size());
    a->cbSizeVft = m_type.vtableSize;
    a->cbAlignment = m_type.alignment;
    a->wTypeFlags = m_type.flags;
    a->wMajorVerNum = m_type.majorVersion;
    a->wMinorVerNum = m_type.minorVersion;
    if (m_face == TKIND_DISPATCH) {
        // A dispinterface counts every function of its vtable, and its vtable is IDispatch's.
        const WORD pointer = m_library.pointerSize();
        a->cFuncs = static_cast<WORD>(m_type.vtableSize / pointer);
        a->cbSizeVft = static_cast<WORD>(kDispatchFunctionCount * pointer);
        a->wTypeFlags &= static_cast<WORD>(~TYPEFLAG_FOLEAUTOMATION);
    }
    *attributes = a;
    return S_OK;
}

HRESULT TypeInfoObject::GetTypeComp(ITypeComp** typeComp)
{
    if (typeComp == nullptr)
        return E_INVALIDARG;
    *typeComp = this;
    AddRef();
    return S_OK;
}

thread_local int BaseType::t_depth = 0;

// Only a malformed library derives a type from itself, or goes deeper than this.
HRESULT TypeInfoObject::base(BaseType& base)
{
    if (base.tooDeep())
        return E_FAIL;
    return m_library.resolve(m_type.implemented[0].reference, &base.info);
}

HRESULT TypeInfoObject::dispatchFunction(UINT index, bool outermost, UINT& count, HREFTYPE& offset,
                                         FUNCDESC** function)
{
    UINT inherited = 0;
    if (outermost)
        offset = kDispatchReferenceOffset;
    else
        count = 0;
    if (!m_type.implemented.empty()) {
        BaseType baseInfo;
        HRESULT status = base(baseInfo);
        if (FAILED(status))
            return status;
        TypeInfoObject* baseObject = typeInfoObject(baseInfo.info);
        if (baseObject == nullptr)
            return E_UNEXPECTED;
        UINT baseCount = 0;
        status = baseObject->dispatchFunction(index, false, baseCount, offset, function);
        inherited += baseCount;
        if (SUCCEEDED(status))
            return status;
        offset += kDispatchReferenceOffset;
    }
    if (outermost)
        offset = 0;
    else
        count = inherited + static_cast<UINT>(m_type.functions.size());
    if (index < inherited)
        return E_INVALIDARG;
    index -= inherited;
    if (index >= m_type.functions.size())
        return TYPE_E_ELEMENTNOTFOUND;
    *function = describeFunction(m_type.functions[index]);
    return S_OK;
}

HRESULT TypeInfoObject::GetFuncDesc(UINT index, FUNCDESC** function)
{
    if (function == nullptr)
        return E_INVALIDARG;
    *function = nullptr;
    if (m_face != TKIND_DISPATCH) {
        if (index >= m_type.functions.size())
            return TYPE_E_ELEMENTNOTFOUND;
        *function = describeFunction(m_type.functions[index]);
        return S_OK;
    }
    UINT count = 0;
    HREFTYPE offset = 0;
    FUNCDESC* described = nullptr;
    HRESULT status = dispatchFunction(index, true, count, offset, &described);
    if (FAILED(status))
        return status;
    status = presentAsDispatch(described);
    if (FAILED(status)) {
        releaseFunction(described);
        return status;
    }
    if (offset != 0)
        offsetReferences(described, offset);
    *function = described;
    return S_OK;
}

HRESULT TypeInfoObject::GetVarDesc(UINT index, VARDESC** variable)
{
    if (index >= m_type.variables.size())
        return TYPE_E_ELEMENTNOTFOUND;
    if (variable == nullptr)
        return E_INVALIDARG;
    *variable = describeVariable(m_type.variables[index]);
    return S_OK;
}

const FunctionModel* TypeInfoObject::functionOf(MEMBERID member) const
{
    for (const FunctionModel& function : m_type.functions) {
        if (function.id == member)
            return &function;
    }
    return nullptr;
}

const VariableModel* TypeInfoObject::variableOf(MEMBERID member) const
{
    for (const VariableModel& variable : m_type.variables) {
        if (variable.id == member)
            return &variable;
    }
    return nullptr;
}

// A member's name and then its parameters' names, as far as there is room and names (a
// dispinterface shows no [retval] parameter); a member of none of this type's own is looked for in
// the type it derives from.
HRESULT TypeInfoObject::GetNames(MEMBERID member, BSTR* names, UINT capacity, UINT* count)
{
    if (names == nullptr || count == nullptr)
        return E_INVALIDARG;
    *count = 0;
    if (const FunctionModel* function = functionOf(member)) {
        if (capacity == 0 || !function->name)
            return S_OK;
        names[(*count)++] = allocateText(function->name);
        for (const ParameterModel& parameter : function->parameters) {
            if (*count >= capacity || !parameter.name ||
                (m_face == TKIND_DISPATCH && (parameter.flags & PARAMFLAG_FRETVAL) != 0))
                break;
            names[(*count)++] = allocateText(parameter.name);
        }
        return S_OK;
    }
    if (const VariableModel* variable = variableOf(member)) {
        names[0] = allocateText(variable->name);
        *count = 1;
        return S_OK;
    }
    if (!m_type.implemented.empty() && (m_face == TKIND_INTERFACE || m_face == TKIND_DISPATCH)) {
        BaseType baseInfo;
        if (SUCCEEDED(base(baseInfo)))
            return baseInfo.info->GetNames(member, names, capacity, count);
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfoObject::GetRefTypeOfImplType(UINT index, HREFTYPE* reference)
{
    if (reference == nullptr)
        return E_INVALIDARG;
    if (index == static_cast<UINT>(-1)) {
        // Only a dual interface has another face.
        if ((m_type.flags & TYPEFLAG_FDUAL) == 0)
            return TYPE_E_ELEMENTNOTFOUND;
        *reference = kOtherFace;
        return S_OK;
    }
    if (index == 0 && m_face == TKIND_DISPATCH) {
        // Every dispinterface derives from IDispatch.
        *reference = m_library.model().dispatchReference;
        return S_OK;
    }
    if (index >= m_type.implemented.size())
        return TYPE_E_ELEMENTNOTFOUND;
    *reference = m_type.implemented[index].reference;
    if (m_face == TKIND_INTERFACE)
        *reference |= 0x2;
    return S_OK;
}

HRESULT TypeInfoObject::GetImplTypeFlags(UINT index, INT* flags)
{
    if (flags == nullptr)
        return E_INVALIDARG;
    if (m_face == TKIND_DISPATCH && index == 0) {
        *flags = 0;
        return S_OK;
    }
    if (index >= m_type.implemented.size())
        return TYPE_E_ELEMENTNOTFOUND;
    *flags = m_type.implemented[index].flags;
    return S_OK;
}

// The first name is a member of this type's own, else of the type it derives from; the others
// are that member's parameters, by position.
HRESULT TypeInfoObject::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids)
{
    if (names == nullptr || (ids == nullptr && count > 0))
        return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i)
        ids[i] = MEMBERID_NIL;
    for (const FunctionModel& function : m_type.functions) {
        if (!sameName(function.name, names[0]))
            continue;
        if (count > 0)
            ids[0] = function.id;
        HRESULT status = S_OK;
        for (UINT i = 1; i < count; ++i) {
            size_t p = 0;
            while (p < function.parameters.size() && !sameName(function.parameters[p].name, names[i]))
                ++p;
            if (p < function.parameters.size())
                ids[i] = static_cast<MEMBERID>(p);
            else
                status = DISP_E_UNKNOWNNAME;
        }
        return status;
    }
    for (const VariableModel& variable : m_type.variables) {
        if (sameName(variable.name, names[0])) {
            if (count > 0)
                ids[0] = variable.id;
            return S_OK;
        }
    }
    if (!m_type.implemented.empty()) {
        BaseType baseInfo;
        const HRESULT status = base(baseInfo);
        if (FAILED(status))
            return status;
        return baseInfo.info->GetIDsOfNames(names, count, ids);
    }
    return DISP_E_UNKNOWNNAME;
}

// The first function of this type's own of that id and a way of calling `flags` allows, else one
// of the type it derives from. Restricted members are not called late, except those numbered
// below zero (_NewEnum).
HRESULT TypeInfoObject::Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if ((m_type.flags & TYPEFLAG_FRESTRICTED) != 0)
        return DISP_E_MEMBERNOTFOUND;
    if (instance == nullptr || parameters == nullptr || parameters->cNamedArgs > parameters->cArgs)
        return E_INVALIDARG;
    for (const FunctionModel& function : m_type.functions) {
        const bool restricted = (function.flags & FUNCFLAG_FRESTRICTED) != 0 && function.id >= 0;
        if (function.id == member && (function.invokeKind & flags) != 0 && !restricted)
            return invokeFunction(this, function, m_library.pointerSize(), instance, flags, *parameters, result,
                                  exception, argumentError);
    }
    if (!m_type.implemented.empty() && (m_face == TKIND_INTERFACE || m_face == TKIND_DISPATCH)) {
        BaseType baseInfo;
        if (SUCCEEDED(base(baseInfo)))
            return baseInfo.info->Invoke(instance, member, flags, parameters, result, exception, argumentError);
    }
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT TypeInfoObject::GetDocumentation(MEMBERID member, BSTR* name, BSTR* docString, DWORD* helpContext,
                                         BSTR* helpFile)
{
    const OptionalText* foundName = nullptr;
    const OptionalText* foundDoc = nullptr;
    DWORD foundContext = 0;
    if (member == MEMBERID_NIL) {
        foundName = &m_type.name;
        foundDoc = &m_type.docString;
        foundContext = m_type.helpContext;
    } else if (const FunctionModel* function = functionOf(member)) {
        foundName = &function->name;
        foundDoc = &function->helpString;
        foundContext = function->helpContext;
    } else if (const VariableModel* variable = variableOf(member)) {
        foundName = &variable->name;
        foundDoc = &variable->helpString;
        foundContext = variable->helpContext;
    }
    if (foundName != nullptr) {
        if (name != nullptr)
            *name = allocateText(*foundName);
        if (docString != nullptr)
            *docString = allocateText(*foundDoc);
        if (helpContext != nullptr)
            *helpContext = foundContext;
        if (helpFile != nullptr)
            *helpFile = allocateText(m_library.model().helpFile);
        return S_OK;
    }
    if (!m_type.implemented.empty() && (m_face == TKIND_INTERFACE || m_face == TKIND_DISPATCH)) {
        BaseType baseInfo;
        if (SUCCEEDED(base(baseInfo)))
            return baseInfo.info->GetDocumentation(member, name, docString, helpContext, helpFile);
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfoObject::GetDllEntry(MEMBERID member, INVOKEKIND kind, BSTR* dllName, BSTR* name, WORD* ordinal)
{
    if (dllName != nullptr)
        *dllName = nullptr;
    if (name != nullptr)
        *name = nullptr;
    if (ordinal != nullptr)
        *ordinal = 0;
    if (m_face != TKIND_MODULE)
        return TYPE_E_BADMODULEKIND;
    for (const FunctionModel& function : m_type.functions) {
        if (function.id != member || function.invokeKind != kind)
            continue;
        if (dllName != nullptr)
            *dllName = allocateText(m_type.dllName);
        if (function.entryName) {
            if (name != nullptr)
                *name = allocateText(function.entryName);
            if (ordinal != nullptr)
                *ordinal = 0xFFFF;
        } else if (ordinal != nullptr) {
            *ordinal = function.entryOrdinal;
        }
        return S_OK;
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfoObject::dispatchReference(HREFTYPE& reference, ITypeInfo** typeInfo)
{
    if (!m_type.implemented.empty() && (reference & kDispatchReferenceMask) != 0) {
        BaseType baseInfo;
        const HRESULT status = base(baseInfo);
        if (FAILED(status))
            return status;
        TypeInfoObject* baseObject = typeInfoObject(baseInfo.info);
        if (baseObject != nullptr && SUCCEEDED(baseObject->dispatchReference(reference, typeInfo)))
            return S_OK;
    }
    reference -= kDispatchReferenceOffset;
    if ((reference & kDispatchReferenceMask) != 0)
        return E_FAIL;
    return GetRefTypeInfo(reference, typeInfo);
}

HRESULT TypeInfoObject::GetRefTypeInfo(HREFTYPE reference, ITypeInfo** typeInfo)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    *typeInfo = nullptr;
    if (static_cast<std::int32_t>(reference) < 0) {
        // The other face of a dual interface.
        if ((m_type.flags & TYPEFLAG_FDUAL) == 0 || (m_face != TKIND_INTERFACE && m_face != TKIND_DISPATCH))
            return TYPE_E_ELEMENTNOTFOUND;
        auto* other = new TypeInfoObject(m_library, m_type, m_index,
                                         m_face == TKIND_INTERFACE ? TKIND_DISPATCH : TKIND_INTERFACE, true);
        other->AddRef();
        *typeInfo = other;
        return S_OK;
    }
    if ((reference & kDispatchReferenceMask) != 0 && m_face == TKIND_DISPATCH) {
        HREFTYPE inherited = reference;
        return dispatchReference(inherited, typeInfo);
    }
    return m_library.resolve(reference, typeInfo);
}

HRESULT TypeInfoObject::AddressOfMember(MEMBERID member, INVOKEKIND kind, PVOID* address)
{
    if (address == nullptr)
        return E_INVALIDARG;
    *address = nullptr;
    const HRESULT status = GetDllEntry(member, kind, nullptr, nullptr, nullptr);
    if (FAILED(status))
        return status;
    return TYPE_E_DLLFUNCTIONNOTFOUND;
}

HRESULT TypeInfoObject::CreateInstance(IUnknown* outer, REFIID, PVOID* object)
{
    if (object != nullptr)
        *object = nullptr;
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    if (m_face != TKIND_COCLASS)
        return E_INVALIDARG;
    return REGDB_E_CLASSNOTREG;
}

HRESULT TypeInfoObject::GetMops(MEMBERID, BSTR* mops)
{
    if (mops != nullptr)
        *mops = nullptr;
    return S_OK;
}

HRESULT TypeInfoObject::GetContainingTypeLib(ITypeLib** library, UINT* index)
{
    if (index != nullptr)
        *index = m_index;
    if (library != nullptr) {
        *library = &m_library;
        m_library.AddRef();
    }
    return S_OK;
}

void TypeInfoObject::ReleaseTypeAttr(TYPEATTR* attributes) { releaseTypeAttributes(attributes); }
void TypeInfoObject::ReleaseFuncDesc(FUNCDESC* function) { releaseFunction(function); }
void TypeInfoObject::ReleaseVarDesc(VARDESC* variable) { releaseVariable(variable); }

HRESULT TypeInfoObject::GetTypeKind(TYPEKIND* kind)
{
    if (kind == nullptr)
        return E_INVALIDARG;
    *kind = m_face;
    return S_OK;
}

HRESULT TypeInfoObject::GetTypeFlags(ULONG* flags)
{
    if (flags == nullptr)
        return E_INVALIDARG;
    *flags = m_type.flags;
    return S_OK;
}

HRESULT TypeInfoObject::GetFuncIndexOfMemId(MEMBERID member, INVOKEKIND kind, UINT* index)
{
    if (index == nullptr)
        return E_INVALIDARG;
    for (size_t f = 0; f < m_type.functions.size(); ++f) {
        if (m_type.functions[f].id == member && (kind & m_type.functions[f].invokeKind) != 0) {
            *index = static_cast<UINT>(f);
            return S_OK;
        }
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfoObject::GetVarIndexOfMemId(MEMBERID member, UINT* index)
{
    if (index == nullptr)
        return E_INVALIDARG;
    for (size_t v = 0; v < m_type.variables.size(); ++v) {
        if (m_type.variables[v].id == member) {
            *index = static_cast<UINT>(v);
            return S_OK;
        }
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

// The type's own custom data: an empty value when it has none of `guid`.
HRESULT TypeInfoObject::GetCustData(REFGUID guid, VARIANT* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    return copyMemberDatum(m_type.custom, guid, value);
}

// A dispinterface takes the indexes its functions have, inherited ones first, but finds custom
// data only by the index of the function among its own, as the platform does.
HRESULT TypeInfoObject::GetFuncCustData(UINT index, REFGUID guid, VARIANT* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    const size_t count = m_face == TKIND_DISPATCH ? m_type.vtableSize / m_library.pointerSize() : m_type.functions.size();
    if (index >= count)
        return TYPE_E_ELEMENTNOTFOUND;
    if (index >= m_type.functions.size()) {
        VariantInit(value);
        return S_OK;
    }
    return copyMemberDatum(m_type.functions[index].custom, guid, value);
}

HRESULT TypeInfoObject::GetParamCustData(UINT function, UINT parameter, REFGUID guid, VARIANT* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    if (function >= m_type.functions.size() || parameter >= m_type.functions[function].parameters.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyMemberDatum(m_type.functions[function].parameters[parameter].custom, guid, value);
}

HRESULT TypeInfoObject::GetVarCustData(UINT index, REFGUID guid, VARIANT* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    if (index >= m_type.variables.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyMemberDatum(m_type.variables[index].custom, guid, value);
}

HRESULT TypeInfoObject::GetImplTypeCustData(UINT index, REFGUID guid, VARIANT* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    if (index >= m_type.implemented.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyMemberDatum(m_type.implemented[index].custom, guid, value);
}

HRESULT TypeInfoObject::GetDocumentation2(MEMBERID member, LCID, BSTR* helpString, DWORD* helpStringContext,
                                          BSTR* helpStringDll)
{
    const OptionalText* foundText = nullptr;
    DWORD foundContext = 0;
    if (member == MEMBERID_NIL) {
        foundText = &m_type.name;
        foundContext = m_type.helpStringContext;
    } else if (const FunctionModel* function = functionOf(member)) {
        foundText = &function->helpString;
        foundContext = function->helpStringContext;
    } else if (const VariableModel* variable = variableOf(member)) {
        foundText = &variable->helpString;
        foundContext = variable->helpStringContext;
    } else {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    if (helpString != nullptr)
        *helpString = allocateText(*foundText);
    if (helpStringContext != nullptr)
        *helpStringContext = foundContext;
    if (helpStringDll != nullptr)
        *helpStringDll = allocateText(m_library.model().helpStringDll);
    return S_OK;
}

HRESULT TypeInfoObject::GetAllCustData(CUSTDATA* data) { return copyAllData(m_type.custom, data); }

HRESULT TypeInfoObject::GetAllFuncCustData(UINT index, CUSTDATA* data)
{
    if (index >= m_type.functions.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyAllData(m_type.functions[index].custom, data);
}

HRESULT TypeInfoObject::GetAllParamCustData(UINT function, UINT parameter, CUSTDATA* data)
{
    if (function >= m_type.functions.size() || parameter >= m_type.functions[function].parameters.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyAllData(m_type.functions[function].parameters[parameter].custom, data);
}

HRESULT TypeInfoObject::GetAllVarCustData(UINT index, CUSTDATA* data)
{
    if (index >= m_type.variables.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyAllData(m_type.variables[index].custom, data);
}

HRESULT TypeInfoObject::GetAllImplTypeCustData(UINT index, CUSTDATA* data)
{
    if (index >= m_type.implemented.size())
        return TYPE_E_ELEMENTNOTFOUND;
    return copyAllData(m_type.implemented[index].custom, data);
}

// A member of this type's own by name and way of calling (any way for `flags` 0), else of the
// type it derives from; a name found only with other ways of calling is TYPE_E_TYPEMISMATCH, and
// a name found nowhere binds nothing (S_OK, DESCKIND_NONE).
HRESULT TypeInfoObject::Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** typeInfo, DESCKIND* kind,
                             BINDPTR* bound)
{
    if (name == nullptr || typeInfo == nullptr || kind == nullptr || bound == nullptr)
        return E_INVALIDARG;
    *kind = DESCKIND_NONE;
    bound->lpfuncdesc = nullptr;
    *typeInfo = nullptr;
    HRESULT status = DISP_E_MEMBERNOTFOUND;
    for (const FunctionModel& function : m_type.functions) {
        if (!sameName(function.name, name))
            continue;
        if (flags != 0 && (function.invokeKind & flags) == 0) {
            status = TYPE_E_TYPEMISMATCH;
            continue;
        }
        FUNCDESC* described = describeFunction(function);
        if (m_face == TKIND_DISPATCH) {
            const HRESULT presented = presentAsDispatch(described);
            if (FAILED(presented)) {
                releaseFunction(described);
                return presented;
            }
        }
        bound->lpfuncdesc = described;
        *kind = DESCKIND_FUNCDESC;
        *typeInfo = this;
        AddRef();
        return S_OK;
    }
    for (const VariableModel& variable : m_type.variables) {
        if (sameName(variable.name, name)) {
            bound->lpvardesc = describeVariable(variable);
            *kind = DESCKIND_VARDESC;
            *typeInfo = this;
            AddRef();
            return S_OK;
        }
    }
    if (status == DISP_E_MEMBERNOTFOUND && !m_type.implemented.empty()) {
        BaseType baseInfo;
        ITypeCompPtr baseComp;
        status = base(baseInfo);
        if (SUCCEEDED(status))
            status = baseInfo.info->GetTypeComp(&baseComp);
        if (SUCCEEDED(status)) {
            status = baseComp->Bind(name, hash, flags, typeInfo, kind, bound);
            if (SUCCEEDED(status) && *kind == DESCKIND_FUNCDESC && m_face == TKIND_DISPATCH) {
                const HRESULT presented = presentAsDispatch(bound->lpfuncdesc);
                if (FAILED(presented))
                    return presented;
            }
            return status;
        }
    }
    return status == DISP_E_MEMBERNOTFOUND ? S_OK : status;
}

// A type information binds no type names.
HRESULT TypeInfoObject::BindType(LPOLESTR name, ULONG, ITypeInfo** typeInfo, ITypeComp** typeComp)
{
    if (name == nullptr || typeInfo == nullptr || typeComp == nullptr)
        return E_INVALIDARG;
    *typeInfo = nullptr;
    *typeComp = nullptr;
    return S_OK;
}

}  // namespace automation::detail
