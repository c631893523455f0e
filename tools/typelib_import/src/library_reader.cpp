#include "library_reader.h"

#include "dispatch_ids.h"
#include "held_description.h"
#include "import_error.h"
#include "text.h"
#include "type_reader.h"

#include <algorithm>

namespace typelib_import {
namespace {

struct Documentation {
    std::string name;
    std::string doc;
};

Documentation documentationOf(ITypeInfo* info, MEMBERID id)
{
    BSTR name = nullptr;
    BSTR doc = nullptr;
    check(info->GetDocumentation(id, &name, &doc, nullptr, nullptr), "ITypeInfo::GetDocumentation");
    const _bstr_t heldName(name, false);
    const _bstr_t heldDoc(doc, false);
    return {utf8(heldName), utf8(heldDoc)};
}

HeldTypeAttr attributesOf(ITypeInfo* info)
{
    TYPEATTR* attributes = nullptr;
    check(info->GetTypeAttr(&attributes), "ITypeInfo::GetTypeAttr");
    return HeldTypeAttr(info, attributes);
}

ITypeInfoPtr implementedType(ITypeInfo* info, UINT index)
{
    HREFTYPE reference = 0;
    check(info->GetRefTypeOfImplType(index, &reference), "ITypeInfo::GetRefTypeOfImplType");
    ITypeInfoPtr implemented;
    check(info->GetRefTypeInfo(reference, &implemented), "ITypeInfo::GetRefTypeInfo");
    return implemented;
}

// GetNames finds a member by its id, so a property's put reads the parameter names of its get; a
// put without a get has no name for its value. Names come in the case the library first met them.
std::vector<std::string> parameterNames(ITypeInfo* info, const FUNCDESC& function)
{
    std::vector<BSTR> names(function.cParams + 1, nullptr);
    UINT found = 0;
    check(info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &found),
          "ITypeInfo::GetNames");
    std::vector<std::string> parameters;
    for (UINT i = 0; i < names.size(); ++i) {
        const _bstr_t held(names[i], false);
        if (i > 0)
            parameters.push_back(i < found               ? utf8(held)
                                 : i == names.size() - 1 ? "value"
                                                         : "argument" + std::to_string(i));
    }
    return parameters;
}

Invocation invocationOf(INVOKEKIND kind)
{
    switch (kind) {
    case INVOKE_PROPERTYGET:
        return Invocation::propertyGet;
    case INVOKE_PROPERTYPUT:
        return Invocation::propertyPut;
    case INVOKE_PROPERTYPUTREF:
        return Invocation::propertyPutRef;
    default:
        return Invocation::method;
    }
}

Function readFunction(ITypeInfo* info, UINT index, const std::string& interfaceName)
{
    FUNCDESC* raw = nullptr;
    check(info->GetFuncDesc(index, &raw), "ITypeInfo::GetFuncDesc");
    const HeldFuncDesc description(info, raw);
    const Documentation documentation = documentationOf(info, description->memid);
    const std::string where = interfaceName + "." + documentation.name;
    Function function;
    function.name = documentation.name;
    function.doc = documentation.doc;
    function.id = description->memid;
    function.invocation = invocationOf(description->invkind);
    function.flags = description->wFuncFlags;
    function.vtableOffset = description->oVft;
    if (description->elemdescFunc.tdesc.vt != VT_HRESULT)
        throw ImportError(where + " does not return HRESULT");
    const std::vector<std::string> names = parameterNames(info, *description);
    for (SHORT i = 0; i < description->cParams; ++i) {
        const ELEMDESC& element = description->lprgelemdescParam[i];
        Parameter parameter;
        parameter.name = names[i];
        parameter.type = readType(info, element.tdesc, where);
        parameter.flags = element.paramdesc.wParamFlags;
        if ((parameter.flags & PARAMFLAG_FHASDEFAULT) && element.paramdesc.pparamdescex)
            parameter.defaultValue = readDefaultValue(element.paramdesc.pparamdescex->varDefaultValue, where);
        function.parameters.push_back(std::move(parameter));
    }
    return function;
}

Interface readInterface(ITypeInfo* described, const TYPEATTR& attributes, const Documentation& documentation)
{
    Interface declared;
    declared.name = documentation.name;
    declared.doc = documentation.doc;
    declared.id = attributes.guid;
    declared.dual = (attributes.wTypeFlags & TYPEFLAG_FDUAL) != 0;
    ITypeInfoPtr vtableFace = described;
    if (attributes.typekind == TKIND_DISPATCH) {
        if (!declared.dual)
            throw ImportError(declared.name + " is a dispatch-only interface: it has no vtable to import");
        vtableFace = implementedType(described, static_cast<UINT>(-1));
    }
    const HeldTypeAttr face = attributesOf(vtableFace);
    if (face->cImplTypes > 0)
        declared.base = documentationOf(implementedType(vtableFace, 0), MEMBERID_NIL).name;
    for (UINT i = 0; i < face->cFuncs; ++i)
        declared.functions.push_back(readFunction(vtableFace, i, declared.name));
    std::stable_sort(declared.functions.begin(), declared.functions.end(),
                     [](const Function& a, const Function& b) { return a.vtableOffset < b.vtableOffset; });
    checkDispatchIds(declared);
    return declared;
}

Enumeration readEnumeration(ITypeInfo* info, const TYPEATTR& attributes, const Documentation& documentation)
{
    Enumeration enumeration{documentation.name, documentation.doc, {}};
    for (UINT i = 0; i < attributes.cVars; ++i) {
        VARDESC* raw = nullptr;
        check(info->GetVarDesc(i, &raw), "ITypeInfo::GetVarDesc");
        const HeldVarDesc variable(info, raw);
        const Documentation constant = documentationOf(info, variable->memid);
        const VARIANT* value = variable->varkind == VAR_CONST ? variable->lpvarValue : nullptr;
        if (!value || (V_VT(value) != VT_I4 && V_VT(value) != VT_INT))
            throw ImportError(documentation.name + "." + constant.name + " is not a 32-bit constant");
        enumeration.values.push_back(
            {constant.name, constant.doc, V_VT(value) == VT_I4 ? std::int32_t(V_I4(value)) : V_INT(value)});
    }
    return enumeration;
}

Coclass readCoclass(ITypeInfo* info, const TYPEATTR& attributes, const Documentation& documentation)
{
    Coclass coclass{documentation.name, documentation.doc, attributes.guid, {}};
    for (UINT i = 0; i < attributes.cImplTypes; ++i) {
        INT flags = 0;
        check(info->GetImplTypeFlags(i, &flags), "ITypeInfo::GetImplTypeFlags");
        if ((flags & IMPLTYPEFLAG_FDEFAULT) && !(flags & IMPLTYPEFLAG_FSOURCE))
            coclass.defaultInterface = documentationOf(implementedType(info, i), MEMBERID_NIL).name;
    }
    return coclass;
}

void readTypeInfo(ITypeInfo* info, Library& library)
{
    const HeldTypeAttr attributes = attributesOf(info);
    const Documentation documentation = documentationOf(info, MEMBERID_NIL);
    switch (attributes->typekind) {
    case TKIND_ENUM:
        library.enumerations.push_back(readEnumeration(info, *attributes, documentation));
        break;
    case TKIND_INTERFACE:
    case TKIND_DISPATCH:
        library.interfaces.push_back(readInterface(info, *attributes, documentation));
        break;
    case TKIND_COCLASS:
        library.coclasses.push_back(readCoclass(info, *attributes, documentation));
        break;
    case TKIND_ALIAS:
        library.aliases.push_back(
            {documentation.name, readType(info, attributes->tdescAlias, documentation.name)});
        break;
    default:
        throw ImportError(documentation.name +
                          " is a record, union or module, which the importer does not write");
    }
}

}  // namespace

Library readLibrary(const std::wstring& path)
{
    ITypeLibPtr loaded;
    check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &loaded), "LoadTypeLibEx");
    Library library;
    BSTR name = nullptr;
    BSTR doc = nullptr;
    check(loaded->GetDocumentation(-1, &name, &doc, nullptr, nullptr), "ITypeLib::GetDocumentation");
    library.name = utf8(_bstr_t(name, false));
    library.doc = utf8(_bstr_t(doc, false));
    TLIBATTR* attributes = nullptr;
    check(loaded->GetLibAttr(&attributes), "ITypeLib::GetLibAttr");
    library.id = attributes->guid;
    library.majorVersion = attributes->wMajorVerNum;
    library.minorVersion = attributes->wMinorVerNum;
    loaded->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < loaded->GetTypeInfoCount(); ++i) {
        ITypeInfoPtr info;
        check(loaded->GetTypeInfo(i, &info), "ITypeLib::GetTypeInfo");
        readTypeInfo(info, library);
    }
    return library;
}

}  // namespace typelib_import
