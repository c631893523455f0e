// Converting a variant to another type: numbers, booleans and text among each other, and
// interfaces by QueryInterface.
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>
#include <cwctype>
#include <limits>
#include <string>

#include "automation.h"
#include "variant_types.h"

using automation_detail::dereferenced;
using automation_detail::traitsOf;
using automation_detail::variantMayHold;

namespace {

// The range of dates the platform accepts: 1 January 100 to 31 December 9999.
constexpr long double earliestDate = -657434.0L;
constexpr long double latestDate = 2958466.0L;

// A number read from text in the C locale: optional sign, digits (grouped by commas or not) with
// an optional decimal point, an optional exponent, and blanks around.
HRESULT parseNumber(BSTR text, long double& number)
{
    std::string narrow;
    bool inIntegerPart = true;
    for (const wchar_t* at = text; at != nullptr && *at != L'\0'; ++at) {
        if (*at > 0x7F)
            return DISP_E_TYPEMISMATCH;
        inIntegerPart = inIntegerPart && *at != L'.' && *at != L'e' && *at != L'E';
        if (!(inIntegerPart && *at == L','))
            narrow += static_cast<char>(*at);
    }
    const auto first = narrow.find_first_not_of(" \t");
    const auto last = narrow.find_last_not_of(" \t");
    if (first == std::string::npos)
        return DISP_E_TYPEMISMATCH;
    const char* begin = narrow.data() + first;
    const char* end = narrow.data() + last + 1;
    const bool negative = *begin == '-';
    if (*begin == '-' || *begin == '+')
        ++begin;
    // from_chars also reads "inf", "nan" and hexadecimal: only decimal digits may start here.
    if (begin == end || !(std::isdigit(static_cast<unsigned char>(*begin)) || *begin == '.'))
        return DISP_E_TYPEMISMATCH;
    const auto parsed = std::from_chars(begin, end, number, std::chars_format::general);
    if (parsed.ptr != end)
        return DISP_E_TYPEMISMATCH;
    if (parsed.ec == std::errc::result_out_of_range)
        return DISP_E_OVERFLOW;
    if (negative)
        number = -number;
    return S_OK;
}

bool isWord(BSTR text, const wchar_t* word)
{
    if (text == nullptr || std::wcslen(text) != std::wcslen(word))
        return false;
    for (std::size_t i = 0; word[i] != L'\0'; ++i) {
        if (static_cast<wchar_t>(std::towlower(text[i])) != word[i])
            return false;
    }
    return true;
}

// The value of a number, a boolean (-1 or 0), an empty variant (0) or a numeric text.
HRESULT toNumber(const VARIANT& value, long double& number)
{
    switch (V_VT(&value)) {
    case VT_EMPTY: number = 0; return S_OK;
    case VT_I1: number = static_cast<signed char>(V_I1(&value)); return S_OK;
    case VT_UI1: number = V_UI1(&value); return S_OK;
    case VT_I2: number = V_I2(&value); return S_OK;
    case VT_UI2: number = V_UI2(&value); return S_OK;
    case VT_I4: number = V_I4(&value); return S_OK;
    case VT_UI4: number = V_UI4(&value); return S_OK;
    case VT_INT: number = V_INT(&value); return S_OK;
    case VT_UINT: number = V_UINT(&value); return S_OK;
    case VT_I8: number = V_I8(&value); return S_OK;
    case VT_UI8: number = V_UI8(&value); return S_OK;
    case VT_R4: number = V_R4(&value); return S_OK;
    case VT_R8: number = V_R8(&value); return S_OK;
    case VT_DATE: number = V_DATE(&value); return S_OK;
    case VT_BOOL: number = V_BOOL(&value) != VARIANT_FALSE ? -1 : 0; return S_OK;
    case VT_BSTR: return parseNumber(V_BSTR(&value), number);
    default: return DISP_E_TYPEMISMATCH;
    }
}

// Integers are rounded half to even, as the platform rounds.
template <class Target, class Stored>
HRESULT storeInteger(long double number, Stored VARIANT::*member, VARIANT& result)
{
    const long double rounded = std::nearbyint(number);
    if (std::isnan(rounded) || rounded < std::numeric_limits<Target>::lowest() ||
        rounded > std::numeric_limits<Target>::max())
        return DISP_E_OVERFLOW;
    result.*member = static_cast<Stored>(static_cast<Target>(rounded));
    return S_OK;
}

HRESULT storeNumber(long double number, VARTYPE type, VARIANT& result)
{
    V_VT(&result) = type;
    switch (type) {
    case VT_I1: return storeInteger<signed char>(number, &VARIANT::cVal, result);
    case VT_UI1: return storeInteger<std::uint8_t>(number, &VARIANT::bVal, result);
    case VT_I2: return storeInteger<std::int16_t>(number, &VARIANT::iVal, result);
    case VT_UI2: return storeInteger<std::uint16_t>(number, &VARIANT::uiVal, result);
    case VT_I4: return storeInteger<std::int32_t>(number, &VARIANT::lVal, result);
    case VT_UI4: return storeInteger<std::uint32_t>(number, &VARIANT::ulVal, result);
    case VT_INT: return storeInteger<std::int32_t>(number, &VARIANT::intVal, result);
    case VT_UINT: return storeInteger<std::uint32_t>(number, &VARIANT::uintVal, result);
    case VT_I8: return storeInteger<std::int64_t>(number, &VARIANT::llVal, result);
    case VT_UI8: return storeInteger<std::uint64_t>(number, &VARIANT::ullVal, result);
    case VT_R4:
        if (std::fabs(number) > FLT_MAX)
            return DISP_E_OVERFLOW;
        V_R4(&result) = static_cast<float>(number);
        return S_OK;
    case VT_R8:
        if (std::fabs(number) > DBL_MAX)
            return DISP_E_OVERFLOW;
        V_R8(&result) = static_cast<double>(number);
        return S_OK;
    case VT_DATE:
        if (!(number >= earliestDate && number < latestDate))
            return DISP_E_OVERFLOW;
        V_DATE(&result) = static_cast<double>(number);
        return S_OK;
    case VT_BOOL:
        V_BOOL(&result) = number != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

// As the platform writes reals: `digits` significant digits, exponent form when shorter.
std::wstring formatReal(double value, int digits)
{
    char buffer[64];
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    std::wstring text(buffer, written.ptr);
    for (wchar_t& c : text)
        c = c == L'e' ? L'E' : c;
    return text;
}

HRESULT toText(const VARIANT& value, USHORT flags, VARIANT& result)
{
    std::wstring text;
    switch (V_VT(&value)) {
    case VT_EMPTY:
        break;
    case VT_BOOL:
        if (flags & VARIANT_ALPHABOOL)
            text = V_BOOL(&value) != VARIANT_FALSE ? L"True" : L"False";
        else
            text = V_BOOL(&value) != VARIANT_FALSE ? L"-1" : L"0";
        break;
    case VT_R4:
        text = formatReal(V_R4(&value), 7);
        break;
    case VT_R8:
        text = formatReal(V_R8(&value), 15);
        break;
    case VT_I1: case VT_UI1: case VT_I2: case VT_UI2: case VT_I4: case VT_UI4:
    case VT_INT: case VT_UINT: case VT_I8: case VT_UI8: {
        long double number = 0;
        toNumber(value, number);
        text = number < 0 ? std::to_wstring(static_cast<long long>(number))
                          : std::to_wstring(static_cast<unsigned long long>(number));
        break;
    }
    default:
        return DISP_E_TYPEMISMATCH;
    }
    V_VT(&result) = VT_BSTR;
    V_BSTR(&result) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return V_BSTR(&result) != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT toInterface(const VARIANT& value, VARTYPE type, VARIANT& result)
{
    if (V_VT(&value) != VT_DISPATCH && V_VT(&value) != VT_UNKNOWN)
        return DISP_E_TYPEMISMATCH;
    V_VT(&result) = type;
    V_UNKNOWN(&result) = nullptr;
    if (V_UNKNOWN(&value) == nullptr)
        return S_OK;
    return V_UNKNOWN(&value)->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                                             reinterpret_cast<void**>(&V_UNKNOWN(&result)));
}

// `value` into a new variant of another type; on failure `result` owns nothing.
HRESULT convert(const VARIANT& value, USHORT flags, VARTYPE type, VARIANT& result)
{
    const VARTYPE from = V_VT(&value);
    if (from == VT_NULL || (from & VT_ARRAY) || (type & (VT_ARRAY | VT_BYREF)))
        return DISP_E_TYPEMISMATCH;
    if (type == VT_EMPTY || type == VT_NULL) {
        V_VT(&result) = type;
        return S_OK;
    }
    if (type == VT_DISPATCH || type == VT_UNKNOWN)
        return toInterface(value, type, result);
    if (type == VT_BSTR)
        return toText(value, flags, result);
    if (type == VT_BOOL && from == VT_BSTR && (isWord(V_BSTR(&value), L"true") || isWord(V_BSTR(&value), L"false")))
        return storeNumber(isWord(V_BSTR(&value), L"true") ? -1 : 0, type, result);
    long double number = 0;
    const HRESULT read = toNumber(value, number);
    return FAILED(read) ? read : storeNumber(number, type, result);
}

}  // namespace

HRESULT VariantChangeType(VARIANTARG* destination, VARIANTARG* source, USHORT flags, VARTYPE type)
{
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    if (!variantMayHold(V_VT(source)) || !variantMayHold(type))
        return DISP_E_BADVARTYPE;
    VARIANT value;
    HRESULT result = dereferenced(*source, value);
    if (FAILED(result))
        return result;
    VARIANT converted;
    VariantInit(&converted);
    result = V_VT(&value) == type ? VariantCopy(&converted, &value) : convert(value, flags, type, converted);
    if (FAILED(result))
        return result;
    result = VariantClear(destination);  // `source` may be `destination`: it is no longer read
    if (FAILED(result)) {
        VariantClear(&converted);
        return result;
    }
    *destination = converted;
    return S_OK;
}
