// Converting a variant to another type. This file checks the types, follows a reference, copies a
// value already of the type, asks an object for its default value and hands each pair of types to
// the conversion that owns it: number_conversions (numbers, dates, amounts and yes/no values
// among each other), number_text and date_text (to and from US English text).
#include "automation.h"
#include "date_text.h"
#include "number_conversions.h"
#include "number_text.h"
#include "us_english.h"
#include "variant_types.h"

using namespace automation_detail;

namespace {

// The locales whose texts the runtime writes and reads: US English, and the defaults, which are it.
constexpr LCID kLocaleNeutral = 0x0000;
constexpr LCID kUsEnglish = 0x0409;

bool isKnownLocale(LCID locale)
{
    return locale == kUsEnglish || locale == LOCALE_USER_DEFAULT || locale == LOCALE_SYSTEM_DEFAULT ||
           locale == kLocaleNeutral;
}

// VT_INT and VT_UINT convert as VT_I4 and VT_UI4, which have their width.
VARTYPE asConverted(VARTYPE type)
{
    if (type == VT_INT)
        return VT_I4;
    return type == VT_UINT ? VARTYPE{VT_UI4} : type;
}

// A bitwise view of `value` with VT_INT and VT_UINT read as VT_I4 and VT_UI4; it owns nothing.
VARIANT asConverted(const VARIANT& value)
{
    VARIANT view = value;
    if (V_VT(&value) == VT_INT) {
        V_VT(&view) = VT_I4;
        V_I4(&view) = V_INT(&value);
    }
    else if (V_VT(&value) == VT_UINT) {
        V_VT(&view) = VT_UI4;
        V_UI4(&view) = V_UINT(&value);
    }
    return view;
}

// The default member (DISPID_VALUE) of `object`, converted to `type` without the caller's flags,
// as the platform does. DISP_E_BADVARTYPE for a null object, DISP_E_TYPEMISMATCH when it gives
// no value.
HRESULT fromDefaultValue(IDispatch* object, LCID locale, VARTYPE type, VARIANT& result)
{
    if (object == nullptr)
        return DISP_E_BADVARTYPE;
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    _variant_t value;
    if (FAILED(object->Invoke(DISPID_VALUE, IID_NULL, locale, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                              nullptr)))
        return DISP_E_TYPEMISMATCH;
    return VariantChangeTypeEx(&result, &value, locale, 0, type);
}

HRESULT storeText(const std::wstring& text, VARIANT& result)
{
    V_VT(&result) = VT_BSTR;
    V_BSTR(&result) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return V_BSTR(&result) != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT toText(const VARIANT& value, LCID locale, USHORT flags, VARIANT& result)
{
    switch (V_VT(&value)) {
    case VT_EMPTY:
        return storeText(L"", result);
    case VT_BOOL:
        if (flags & VARIANT_ALPHABOOL)
            return storeText(V_BOOL(&value) != VARIANT_FALSE ? us_english::kTrue : us_english::kFalse,
                             result);
        return storeText(textOfInteger(exactIntegerOf(value)), result);
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
        return storeText(textOfInteger(exactIntegerOf(value)), result);
    case VT_R4:
        return storeText(textOfReal(V_R4(&value), 7), result);
    case VT_R8:
        return storeText(textOfReal(V_R8(&value), 15), result);
    case VT_CY:
        return storeText(textOfCurrency(V_CY(&value)), result);
    case VT_DATE: {
        std::wstring text;
        const HRESULT written = textOfDate(V_DATE(&value), text);
        return FAILED(written) ? written : storeText(text, result);
    }
    case VT_DISPATCH:
        return fromDefaultValue(V_DISPATCH(&value), locale, VT_BSTR, result);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

HRESULT fromText(const wchar_t* text, VARTYPE type, VARIANT& result)
{
    if (type == VT_DATE) {
        V_VT(&result) = VT_DATE;
        return dateFromText(text, V_DATE(&result));
    }
    if (type == VT_BOOL) {
        V_VT(&result) = VT_BOOL;
        return booleanFromText(text, V_BOOL(&result));
    }
    return numberFromText(text, type, result);
}

HRESULT toInterface(const VARIANT& value, VARTYPE type, VARIANT& result)
{
    const VARTYPE other = type == VT_DISPATCH ? VT_UNKNOWN : VT_DISPATCH;
    if (V_VT(&value) != other)
        return DISP_E_TYPEMISMATCH;
    V_VT(&result) = type;
    V_UNKNOWN(&result) = nullptr;
    if (V_UNKNOWN(&value) == nullptr)
        return S_OK;
    return V_UNKNOWN(&value)->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                                             reinterpret_cast<void**>(&V_UNKNOWN(&result)));
}

// `source` (no reference, no array) as `type` (no reference, no array) into `result`, which
// owns nothing on failure.
HRESULT convert(const VARIANT& source, LCID locale, USHORT flags, VARTYPE type, VARIANT& result)
{
    VARIANT value = asConverted(source);
    const VARTYPE from = V_VT(&value);
    if (from == type)
        return VariantCopy(&result, &value);
    // An object's default value stands for it unless the caller forbids that.
    if ((flags & VARIANT_NOVALUEPROP) && from == VT_DISPATCH && type != VT_UNKNOWN)
        return DISP_E_TYPEMISMATCH;
    switch (type) {
    case VT_EMPTY:
    case VT_NULL:
        if (from == VT_ERROR || (from == VT_NULL && type == VT_EMPTY))
            return DISP_E_TYPEMISMATCH;
        V_VT(&result) = type;
        return S_OK;
    case VT_BSTR:
        return toText(value, locale, flags, result);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return toInterface(value, type, result);
    case VT_ERROR:
    case VT_VARIANT:
        return DISP_E_TYPEMISMATCH;
    default:
        if (from == VT_BSTR)
            return fromText(V_BSTR(&value), type, result);
        if (from == VT_DISPATCH)
            return fromDefaultValue(V_DISPATCH(&value), locale, type, result);
        return convertNumber(value, type, result);
    }
}

// A VT_I4 or VT_UI4 result as the VT_INT or VT_UINT asked for.
void relabel(VARTYPE requested, VARIANT& result)
{
    if (requested == VT_INT) {
        const auto number = static_cast<std::int32_t>(V_I4(&result));
        V_VT(&result) = VT_INT;
        V_INT(&result) = number;
    }
    else if (requested == VT_UINT) {
        const auto number = static_cast<std::uint32_t>(V_UI4(&result));
        V_VT(&result) = VT_UINT;
        V_UINT(&result) = number;
    }
}

}  // namespace

HRESULT VariantChangeTypeEx(VARIANTARG* destination, VARIANTARG* source, LCID locale, USHORT flags,
                            VARTYPE type)
{
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    if (!isKnownLocale(locale))
        return DISP_E_UNKNOWNLCID;
    // VT_VARIANT is a type the platform knows but converts nothing to.
    if (!variantMayHold(V_VT(source)) || !(variantMayHold(type) || type == VT_VARIANT))
        return DISP_E_BADVARTYPE;
    VARIANT value;
    HRESULT result = dereferenced(*source, value);
    if (FAILED(result))
        return result;
    VARIANT converted;
    VariantInit(&converted);
    if ((V_VT(&value) & VT_ARRAY) || (type & (VT_ARRAY | VT_BYREF)))
        result = V_VT(&value) == type ? VariantCopy(&converted, &value) : DISP_E_TYPEMISMATCH;
    else
        result = convert(value, locale, flags, asConverted(type), converted);
    if (FAILED(result))
        return result;
    relabel(type, converted);
    result = VariantClear(destination);  // `source` may be `destination`: it is no longer read
    if (FAILED(result)) {
        VariantClear(&converted);
        return result;
    }
    *destination = converted;
    return S_OK;
}

HRESULT VariantChangeType(VARIANTARG* destination, VARIANTARG* source, USHORT flags, VARTYPE type)
{
    return VariantChangeTypeEx(destination, source, LOCALE_USER_DEFAULT, flags, type);
}
