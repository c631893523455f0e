#include "type_spelling.h"

#include "import_error.h"

namespace typelib_import {
namespace {

struct BaseType {
    VARTYPE type;
    const char* cpp;
    const char* name;
};

// The automation types, as the platform's headers spell them.
const BaseType kBaseTypes[] = {
    {VT_EMPTY, "void", "VT_EMPTY"},
    {VT_I1, "char", "VT_I1"},
    {VT_UI1, "unsigned char", "VT_UI1"},
    {VT_I2, "short", "VT_I2"},
    {VT_UI2, "unsigned short", "VT_UI2"},
    {VT_I4, "long", "VT_I4"},
    {VT_UI4, "unsigned long", "VT_UI4"},
    {VT_INT, "int", "VT_INT"},
    {VT_UINT, "unsigned int", "VT_UINT"},
    {VT_R4, "float", "VT_R4"},
    {VT_R8, "double", "VT_R8"},
    {VT_CY, "CY", "VT_CY"},
    {VT_DATE, "DATE", "VT_DATE"},
    {VT_BSTR, "BSTR", "VT_BSTR"},
    {VT_DISPATCH, "IDispatch*", "VT_DISPATCH"},
    {VT_ERROR, "SCODE", "VT_ERROR"},
    {VT_BOOL, "VARIANT_BOOL", "VT_BOOL"},
    {VT_VARIANT, "VARIANT", "VT_VARIANT"},
    {VT_UNKNOWN, "IUnknown*", "VT_UNKNOWN"},
    {VT_VOID, "void", "VT_VOID"},
    {VT_HRESULT, "HRESULT", "VT_HRESULT"},
};

const BaseType* baseTypeOf(VARTYPE type)
{
    for (const BaseType& base : kBaseTypes)
        if (base.type == type)
            return &base;
    return nullptr;
}

[[noreturn]] void unsupported(VARTYPE type)
{
    throw ImportError("variant type " + std::to_string(type) + " has no spelling in the importer");
}

}  // namespace

std::string cppType(const Type& type)
{
    std::string spelled;
    if (type.base == VT_USERDEFINED) {
        spelled = type.name;
    }
    else if (const BaseType* base = baseTypeOf(type.base)) {
        spelled = base->cpp;
    }
    else {
        unsupported(type.base);
    }
    return spelled + std::string(type.pointers, '*');
}

VARTYPE variantTypeOf(const Type& type)
{
    if (type.base == VT_USERDEFINED && type.kind == TypeKind::objectInterface && type.pointers == 1)
        return VT_DISPATCH;
    if (type.base == VT_USERDEFINED && type.kind == TypeKind::enumeration && type.pointers == 0)
        return VT_I4;
    if (type.base != VT_USERDEFINED && type.pointers == 0 && baseTypeOf(type.base) && type.base != VT_VOID &&
        type.base != VT_HRESULT)
        return type.base;
    throw ImportError("the type " + cppType(type) + " has no variant type");
}

std::string variantTypeName(VARTYPE type)
{
    const BaseType* base = baseTypeOf(type);
    if (!base)
        unsupported(type);
    return base->name;
}

}  // namespace typelib_import
