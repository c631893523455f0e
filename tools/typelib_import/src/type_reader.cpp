#include "type_reader.h"

#include "held_description.h"
#include "import_error.h"
#include "text.h"

namespace typelib_import {
namespace {

TypeKind kindOf(TYPEKIND kind)
{
    switch (kind) {
    case TKIND_ENUM:
        return TypeKind::enumeration;
    case TKIND_INTERFACE:
    case TKIND_DISPATCH:
        return TypeKind::objectInterface;
    case TKIND_COCLASS:
        return TypeKind::coclass;
    case TKIND_ALIAS:
        return TypeKind::alias;
    default:
        return TypeKind::none;
    }
}

}  // namespace

Type readType(ITypeInfo* owner, const TYPEDESC& description, const std::string& where)
{
    Type type;
    const TYPEDESC* at = &description;
    while (at->vt == VT_PTR) {
        ++type.pointers;
        at = at->lptdesc;
    }
    type.base = at->vt;
    if (type.base == VT_SAFEARRAY || type.base == VT_CARRAY)
        throw ImportError(where + " takes an array type, which the importer does not write");
    if (type.base != VT_USERDEFINED)
        return type;
    ITypeInfoPtr referenced;
    check(owner->GetRefTypeInfo(at->hreftype, &referenced), "ITypeInfo::GetRefTypeInfo");
    BSTR name = nullptr;
    check(referenced->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr),
          "ITypeInfo::GetDocumentation");
    type.name = utf8(_bstr_t(name, false));
    TYPEATTR* attributes = nullptr;
    check(referenced->GetTypeAttr(&attributes), "ITypeInfo::GetTypeAttr");
    const HeldTypeAttr held(referenced, attributes);
    type.kind = kindOf(held->typekind);
    if (type.kind == TypeKind::none)
        throw ImportError(where + " takes the record, union or module " + type.name);
    return type;
}

DefaultValue readDefaultValue(const VARIANT& value, const std::string& where)
{
    switch (V_VT(&value)) {
    case VT_I2:
        return {VT_I4, V_I2(&value), {}};
    case VT_I4:
        return {VT_I4, std::int32_t(V_I4(&value)), {}};
    case VT_INT:
        return {VT_I4, V_INT(&value), {}};
    case VT_BOOL:
        return {VT_BOOL, V_BOOL(&value) ? -1 : 0, {}};
    case VT_BSTR:
        return {VT_BSTR, 0, utf8(V_BSTR(&value))};
    default:
        throw ImportError(where + " has a default value of variant type " + std::to_string(V_VT(&value)) +
                          ", which the importer does not write");
    }
}

}  // namespace typelib_import
