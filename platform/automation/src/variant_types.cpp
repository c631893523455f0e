#include "variant_types.h"

#include <cstring>

namespace automation_detail {

TypeTraits traitsOf(VARTYPE basicType)
{
    switch (basicType) {
    case VT_I1:
    case VT_UI1:
        return {1, Storage::Value};
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return {2, Storage::Value};
    case VT_INT:
    case VT_UINT:
    case VT_R4:
        return {4, Storage::Value};
    case VT_I4:
        return {sizeof(LONG), Storage::Value};
    case VT_UI4:
        return {sizeof(ULONG), Storage::Value};
    case VT_ERROR:
        return {sizeof(SCODE), Storage::Value};
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return {8, Storage::Value};
    case VT_BSTR:
        return {sizeof(BSTR), Storage::String};
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return {sizeof(IUnknown*), Storage::Interface};
    case VT_VARIANT:
        return {sizeof(VARIANT), Storage::Variant};
    default:
        return {0, Storage::Value};
    }
}

bool variantMayHold(VARTYPE type)
{
    const VARTYPE basic = type & VT_TYPEMASK;
    const VARTYPE extras = type & ~VT_TYPEMASK;
    if (extras == 0)
        return basic == VT_EMPTY || basic == VT_NULL || (basic != VT_VARIANT && traitsOf(basic).size != 0);
    if (extras == VT_ARRAY || extras == VT_BYREF || extras == (VT_ARRAY | VT_BYREF))
        return traitsOf(basic).size != 0;
    return false;
}

HRESULT dereferenced(const VARIANT& source, VARIANT& value)
{
    if (!V_ISBYREF(&source)) {
        value = source;
        return S_OK;
    }
    if (V_BYREF(&source) == nullptr)
        return DISP_E_TYPEMISMATCH;
    const VARTYPE type = V_VT(&source) & ~VT_BYREF;
    if (type == VT_VARIANT) {
        value = *V_VARIANTREF(&source);
        return V_ISBYREF(&value) ? DISP_E_TYPEMISMATCH : S_OK;
    }
    VariantInit(&value);
    V_VT(&value) = type;
    if (type & VT_ARRAY)
        V_ARRAY(&value) = *V_ARRAYREF(&source);
    else
        std::memcpy(&value.llVal, V_BYREF(&source), traitsOf(type).size);
    return S_OK;
}

}  // namespace automation_detail
