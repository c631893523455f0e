#include "calls/arguments.h"

#include "model/text.h"

#include "sim/journal.h"

#include <cstdint>
#include <cwchar>

namespace sim::detail {
namespace {

std::string describeBoolean(VARIANT_BOOL value)
{
    if (value == VARIANT_TRUE)
        return "true";
    if (value == VARIANT_FALSE)
        return "false";
    return std::to_string(value);
}

// One element of a safe array, by its address.
std::string describeElement(VARTYPE type, const void* element)
{
    switch (type) {
    case VT_I2:
        return std::to_string(*static_cast<const SHORT*>(element));
    case VT_I4:
        return std::to_string(*static_cast<const LONG*>(element));
    case VT_INT:
        return std::to_string(*static_cast<const INT*>(element));
    case VT_R4:
        return text::formatReal(*static_cast<const FLOAT*>(element));
    case VT_R8:
        return text::formatReal(*static_cast<const DOUBLE*>(element));
    case VT_BOOL:
        return describeBoolean(*static_cast<const VARIANT_BOOL*>(element));
    case VT_BSTR: {
        const BSTR text = *static_cast<const BSTR*>(element);
        return text ? "'" + text::toUtf8(text::fromBstr(text)) + "'" : std::string("null");
    }
    case VT_VARIANT: {
        const VARIANT& inner = *static_cast<const VARIANT*>(element);
        return variantTypeName(V_VT(&inner)) + " " + describeVariantValue(inner);
    }
    default:
        return "?";
    }
}

std::string describeArray(VARTYPE elementType, SAFEARRAY* array)
{
    if (array == nullptr)
        return "null";
    if (SafeArrayGetDim(array) != 1)
        return "(" + std::to_string(SafeArrayGetDim(array)) + " dimensions)";
    LONG lower = 0;
    LONG upper = -1;
    SafeArrayGetLBound(array, 1, &lower);
    SafeArrayGetUBound(array, 1, &upper);
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data)))
        return "(locked)";
    const UINT size = SafeArrayGetElemsize(array);
    std::string out = "[";
    for (LONG i = lower; i <= upper; ++i) {
        if (i > lower)
            out += ", ";
        out += describeElement(elementType,
                               static_cast<const char*>(data) + static_cast<size_t>(i - lower) * size);
    }
    SafeArrayUnaccessData(array);
    return out + "]";
}

}  // namespace

std::string describeVariantValue(const VARIANT& value)
{
    const VARTYPE type = V_VT(&value);
    // A reference to an array points at the array's own pointer.
    if ((type & VT_ARRAY) && (type & VT_BYREF))
        return V_ARRAYREF(&value) ? describeArray(type & VT_TYPEMASK, *V_ARRAYREF(&value)) : "null";
    if (type & VT_ARRAY)
        return describeArray(type & VT_TYPEMASK, V_ARRAY(&value));
    switch (type) {
    case VT_EMPTY:
        return "";
    case VT_NULL:
        return "null";
    case VT_I2:
        return std::to_string(V_I2(&value));
    case VT_I4:
        return std::to_string(V_I4(&value));
    case VT_INT:
        return std::to_string(V_INT(&value));
    case VT_UI1:
        return std::to_string(V_UI1(&value));
    case VT_UI2:
        return std::to_string(V_UI2(&value));
    case VT_UI4:
        return std::to_string(V_UI4(&value));
    case VT_UINT:
        return std::to_string(V_UINT(&value));
    case VT_I8:
        return std::to_string(V_I8(&value));
    case VT_UI8:
        return std::to_string(V_UI8(&value));
    case VT_R4:
        return text::formatReal(V_R4(&value));
    case VT_R8:
        return text::formatReal(V_R8(&value));
    case VT_BOOL:
        return describeBoolean(V_BOOL(&value));
    case VT_ERROR:
        return statusName(V_ERROR(&value));
    case VT_BSTR:
        return text::toUtf8(text::fromBstr(V_BSTR(&value)));
    case VT_DISPATCH:
        return V_DISPATCH(&value) ? "object" : "null";
    case VT_UNKNOWN:
        return V_UNKNOWN(&value) ? "object" : "null";
    default:
        return "?";
    }
}

JournalArgument Arg::describe() const
{
    switch (m_kind) {
    case Kind::variant:
        return {V_VT(m_variant), describeVariantValue(*m_variant),
                V_VT(m_variant) == VT_BSTR && V_BSTR(m_variant) == nullptr};
    case Kind::automationText:
        return {VT_BSTR, text::toUtf8(text::fromBstr(const_cast<BSTR>(m_text))), m_text == nullptr};
    case Kind::sdkText:
        return {VT_LPWSTR,
                m_text ? text::toUtf8(std::wstring_view(m_text, std::wcslen(m_text))) : std::string(),
                m_text == nullptr};
    case Kind::flag:
        return {VT_BOOL, describeBoolean(static_cast<VARIANT_BOOL>(m_number))};
    case Kind::number:
        return {VT_I4, std::to_string(m_number)};
    case Kind::shortNumber:
        return {VT_I2, std::to_string(m_number)};
    case Kind::pointer:
        return {VT_PTR, text::toUtf8(m_text)};
    }
    return {};
}

bool Arg::fitsInterface() const
{
    const auto fits = [](long long number) { return number >= INT32_MIN && number <= INT32_MAX; };
    if (m_kind == Kind::number)
        return fits(m_number);
    if (m_kind == Kind::variant && V_VT(m_variant) == VT_I4)
        return fits(V_I4(m_variant));
    return true;
}

}  // namespace sim::detail
