#include "call_types.h"

namespace automation::detail {
namespace {

HRESULT referencedType(ITypeInfo* context, HREFTYPE reference, VARTYPE& variantType);

// Adds to `variantType` the type `type` is passed as, below any pointer already taken off.
HRESULT addType(ITypeInfo* context, const TYPEDESC& type, VARTYPE& variantType)
{
    switch (type.vt) {
    case VT_HRESULT:
        variantType |= VT_ERROR;
        return S_OK;
    case VT_INT:
        variantType |= VT_I4;
        return S_OK;
    case VT_UINT:
        variantType |= VT_UI4;
        return S_OK;
    case VT_USERDEFINED:
        return referencedType(context, type.hreftype, variantType);
    case VT_SAFEARRAY:
        variantType |= VT_ARRAY;
        return addType(context, *type.lptdesc, variantType);
    case VT_VOID:
    case VT_PTR:
    case VT_CARRAY:
    case VT_LPSTR:
    case VT_LPWSTR:
        return DISP_E_BADVARTYPE;
    default:
        variantType |= type.vt;
        return S_OK;
    }
}

// The type a reference names: an interface is an object, an enumeration a VT_I4.
HRESULT referencedType(ITypeInfo* context, HREFTYPE reference, VARTYPE& variantType)
{
    ITypeInfoPtr referenced;
    HRESULT status = context->GetRefTypeInfo(reference, &referenced);
    if (FAILED(status))
        return status;
    TYPEATTR* attributes = nullptr;
    status = referenced->GetTypeAttr(&attributes);
    if (FAILED(status))
        return status;
    switch (attributes->typekind) {
    case TKIND_ENUM:
        variantType |= VT_I4;
        break;
    case TKIND_ALIAS:
        status = addType(referenced, attributes->tdescAlias, variantType);
        break;
    case TKIND_INTERFACE:
        variantType |= (attributes->wTypeFlags & TYPEFLAG_FDISPATCHABLE) != 0 ? VT_DISPATCH : VT_UNKNOWN;
        break;
    case TKIND_DISPATCH:
    case TKIND_COCLASS:
        variantType |= VT_DISPATCH;
        break;
    case TKIND_RECORD:
        variantType |= VT_RECORD;
        break;
    default:
        status = DISP_E_BADVARTYPE;
        break;
    }
    referenced->ReleaseTypeAttr(attributes);
    return status;
}

bool isObject(VARTYPE type)
{
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

}  // namespace

HRESULT variantTypeOf(ITypeInfo* context, const TYPEDESC& type, VARTYPE& variantType)
{
    variantType = VT_EMPTY;
    if (type.vt != VT_PTR)
        return addType(context, type, variantType);
    const TYPEDESC& pointee = *type.lptdesc;
    // A pointer to an interface is the object itself; a pointer to that pointer refers to one.
    const bool toPointer = pointee.vt == VT_PTR;
    const TYPEDESC& named = toPointer ? *pointee.lptdesc : pointee;
    if (named.vt == VT_USERDEFINED) {
        VARTYPE object = VT_EMPTY;
        if (SUCCEEDED(referencedType(context, named.hreftype, object)) && isObject(object)) {
            variantType = toPointer ? static_cast<VARTYPE>(VT_BYREF | object) : object;
            return S_OK;
        }
    }
    variantType = VT_BYREF;
    return addType(context, pointee, variantType);
}

}  // namespace automation::detail
