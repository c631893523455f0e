// Numbers, dates, currency amounts and yes/no values converted to one another.
#include "number_conversions.h"

#include <cfloat>
#include <cmath>

namespace automation_detail {
namespace {

// The range of dates the platform checks where it checks them: the years 100 to 9999.
constexpr std::int64_t kEarliestDay = -657434;
constexpr std::int64_t kLatestDay = 2958465;

// The largest whole amount of a currency value, and its number of ten-thousandths in a unit.
constexpr std::uint64_t kLargestWholeAmount = 922337203685477;
constexpr std::int64_t kCurrencyScale = 10000;

struct IntegerType {
    VARTYPE type;
    int bits;
    bool isSigned;
    // A real below `lowestReal`, or at or above `highestReal` (above it for VT_UI8), is out of range.
    double lowestReal;
    double highestReal;
    // What the platform makes of a NaN: its processor's answer for an invalid conversion, less one.
    std::uint64_t nanBits;
};

const IntegerType kIntegerTypes[] = {
    {VT_I1, 8, true, -128.5, 127.5, 0xFF},
    {VT_UI1, 8, false, -0.5, 255.5, 0xFF},
    {VT_I2, 16, true, -32768.5, 32767.5, 0xFFFF},
    {VT_UI2, 16, false, -0.5, 65535.5, 0xFFFF},
    {VT_I4, 32, true, -2147483648.5, 2147483647.5, 0x7FFFFFFF},
    {VT_UI4, 32, false, -0.5, 4294967295.5, 0xFFFFFFFF},
    {VT_I8, 64, true, -4611686018427387904.0, 4611686018427387904.0, 0x7FFFFFFFFFFFFFFF},
    {VT_UI8, 64, false, -0.5, 1.844674407370955e19, 0x7FFFFFFFFFFFFFFF},
};

const IntegerType* integerTypeOf(VARTYPE type)
{
    for (const IntegerType& integer : kIntegerTypes) {
        if (integer.type == type)
            return &integer;
    }
    return nullptr;
}

ExactInteger exactly(std::int64_t value)
{
    return {value < 0, value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value)};
}

std::uint64_t bitsOf(ExactInteger value)
{
    return value.negative ? 0 - value.magnitude : value.magnitude;
}

void storeBits(std::uint64_t bits, VARTYPE type, VARIANT& result)
{
    V_VT(&result) = type;
    switch (type) {
    case VT_I1:
        V_I1(&result) = static_cast<CHAR>(static_cast<std::uint8_t>(bits));
        break;
    case VT_UI1:
        V_UI1(&result) = static_cast<BYTE>(bits);
        break;
    case VT_I2:
        V_I2(&result) = static_cast<SHORT>(static_cast<std::uint16_t>(bits));
        break;
    case VT_UI2:
        V_UI2(&result) = static_cast<USHORT>(bits);
        break;
    case VT_I4:
        V_I4(&result) = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
        break;
    case VT_UI4:
        V_UI4(&result) = static_cast<std::uint32_t>(bits);
        break;
    case VT_I8:
        V_I8(&result) = static_cast<LONGLONG>(bits);
        break;
    default:
        V_UI8(&result) = bits;
        break;
    }
}

HRESULT integerFromReal(double value, const IntegerType& target, VARIANT& result)
{
    if (std::isnan(value)) {
        storeBits(target.nanBits, target.type, result);
        return S_OK;
    }
    const bool tooHigh = target.type == VT_UI8 ? value > target.highestReal : value >= target.highestReal;
    if (value < target.lowestReal || tooHigh)
        return DISP_E_OVERFLOW;
    const double rounded = std::nearbyint(value);  // half to even in the default rounding mode
    storeInteger({rounded < 0, static_cast<std::uint64_t>(std::fabs(rounded))}, target.type, result);
    return S_OK;
}

HRESULT dateFromReal(double value, VARIANT& result)
{
    if (value <= kEarliestDay - 1.0 || value >= kLatestDay + 1.0)
        return DISP_E_OVERFLOW;
    V_VT(&result) = VT_DATE;
    V_DATE(&result) = value;
    return S_OK;
}

void storeReal(double value, VARTYPE type, VARIANT& result)
{
    V_VT(&result) = type;
    if (type == VT_R4)
        V_R4(&result) = static_cast<float>(value);
    else if (type == VT_R8)
        V_R8(&result) = value;
    else
        V_DATE(&result) = value;
}

void storeBoolean(bool value, VARIANT& result)
{
    V_VT(&result) = VT_BOOL;
    V_BOOL(&result) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void storeCurrency(std::int64_t amount, VARIANT& result)
{
    V_VT(&result) = VT_CY;
    V_CY(&result).int64 = amount;
}

// A VT_R4 value on its way to a date is the one the platform does not check.
HRESULT fromReal(double value, VARTYPE from, VARTYPE type, VARIANT& result)
{
    if (const IntegerType* integer = integerTypeOf(type))
        return integerFromReal(value, *integer, result);
    switch (type) {
    case VT_R4:
        if (std::fabs(value) > FLT_MAX)
            return DISP_E_OVERFLOW;
        storeReal(value, type, result);
        return S_OK;
    case VT_R8:
        storeReal(value, type, result);
        return S_OK;
    case VT_DATE:
        if (from == VT_R4) {
            storeReal(value, type, result);
            return S_OK;
        }
        return dateFromReal(value, result);
    case VT_CY:
        V_VT(&result) = VT_CY;
        return currencyFromReal(value, V_CY(&result));
    default:
        storeBoolean(value != 0, result);
        return S_OK;
    }
}

// The platform's bounds differ by a unit: VT_I8 refuses the largest whole amount (and its
// negative), VT_UI8 takes it.
bool fitsCurrency(ExactInteger value, VARTYPE from)
{
    if (from == VT_UI8)
        return value.magnitude <= kLargestWholeAmount;
    return value.magnitude < kLargestWholeAmount;
}

HRESULT fromInteger(const VARIANT& source, VARTYPE type, VARIANT& result)
{
    const ExactInteger value = exactIntegerOf(source);
    const VARTYPE from = V_VT(&source);
    if (const IntegerType* target = integerTypeOf(type)) {
        const IntegerType* origin = integerTypeOf(from);
        if (origin != nullptr && origin->bits == target->bits)
            storeBits(bitsOf(value), type, result);
        else if (fitsIn(value, type))
            storeInteger(value, type, result);
        else
            return DISP_E_OVERFLOW;
        return S_OK;
    }
    const double real =
        value.negative ? -static_cast<double>(value.magnitude) : static_cast<double>(value.magnitude);
    switch (type) {
    case VT_R4: {
        // Straight to single precision, so that it is rounded once.
        const float single = static_cast<float>(value.magnitude);
        V_VT(&result) = VT_R4;
        V_R4(&result) = value.negative ? -single : single;
        return S_OK;
    }
    case VT_R8:
        storeReal(real, type, result);
        return S_OK;
    case VT_DATE:
        if (value.negative ? value.magnitude > static_cast<std::uint64_t>(-kEarliestDay)
                           : value.magnitude > static_cast<std::uint64_t>(kLatestDay))
            return DISP_E_OVERFLOW;
        storeReal(real, type, result);
        return S_OK;
    case VT_CY:
        if (!fitsCurrency(value, from))
            return DISP_E_OVERFLOW;
        storeCurrency(static_cast<std::int64_t>(bitsOf(value)) * kCurrencyScale, result);
        return S_OK;
    default:
        storeBoolean(value.magnitude != 0, result);
        return S_OK;
    }
}

// A yes/no value is the 16-bit number -1 or 0 (or whatever else it holds) to every other type.
HRESULT fromBoolean(VARIANT_BOOL value, VARTYPE type, VARIANT& result)
{
    if (isIntegerType(type)) {
        storeBits(static_cast<std::uint64_t>(static_cast<std::int64_t>(value)), type, result);
        return S_OK;
    }
    if (type == VT_CY) {
        storeCurrency(static_cast<std::int64_t>(value) * kCurrencyScale, result);
        return S_OK;
    }
    storeReal(value, type, result);
    return S_OK;
}

// To VT_I8 and VT_UI8 the platform rounds amounts itself: half to even above zero, and a
// negative amount one unit down from its whole part, even when it has no fraction.
HRESULT wholeFromCurrency(std::int64_t amount, VARTYPE type, VARIANT& result)
{
    std::int64_t whole = amount / kCurrencyScale;
    if (amount < 0) {
        if (type == VT_UI8) {
            if (amount < -kCurrencyScale / 2)
                return DISP_E_OVERFLOW;
            whole = 0;
        }
        else {
            --whole;
        }
    }
    else {
        const std::int64_t fraction = amount - whole * kCurrencyScale;
        if (fraction > kCurrencyScale / 2 || (fraction == kCurrencyScale / 2 && (whole & 1) != 0))
            ++whole;
    }
    storeBits(static_cast<std::uint64_t>(whole), type, result);
    return S_OK;
}

HRESULT fromCurrency(CY amount, VARTYPE type, VARIANT& result)
{
    if (type == VT_I8 || type == VT_UI8)
        return wholeFromCurrency(amount.int64, type, result);
    if (type == VT_BOOL) {
        storeBoolean(amount.int64 != 0, result);
        return S_OK;
    }
    const double real = static_cast<double>(amount.int64) / static_cast<double>(kCurrencyScale);
    if (const IntegerType* integer = integerTypeOf(type))
        return integerFromReal(real, *integer, result);
    storeReal(real, type, result);
    return S_OK;
}

}  // namespace

bool isIntegerType(VARTYPE type)
{
    return integerTypeOf(type) != nullptr;
}

ExactInteger exactIntegerOf(const VARIANT& value)
{
    switch (V_VT(&value)) {
    case VT_I1:
        return exactly(static_cast<signed char>(V_I1(&value)));
    case VT_UI1:
        return exactly(V_UI1(&value));
    case VT_I2:
        return exactly(V_I2(&value));
    case VT_UI2:
        return exactly(V_UI2(&value));
    case VT_I4:
        return exactly(static_cast<std::int32_t>(V_I4(&value)));
    case VT_UI4:
        return exactly(static_cast<std::uint32_t>(V_UI4(&value)));
    case VT_I8:
        return exactly(V_I8(&value));
    case VT_UI8:
        return {false, V_UI8(&value)};
    case VT_BOOL:
        return exactly(V_BOOL(&value));
    default:
        return {false, 0};
    }
}

bool fitsIn(ExactInteger value, VARTYPE integerType)
{
    const IntegerType& target = *integerTypeOf(integerType);
    const std::uint64_t signBit = std::uint64_t{1} << (target.bits - 1);
    if (value.negative && value.magnitude != 0)
        return target.isSigned && value.magnitude <= signBit;
    const std::uint64_t highest = target.isSigned ? signBit - 1 : signBit - 1 + signBit;
    return value.magnitude <= highest;
}

void storeInteger(ExactInteger value, VARTYPE integerType, VARIANT& result)
{
    storeBits(bitsOf(value), integerType, result);
}

HRESULT currencyFromReal(double value, CY& amount)
{
    constexpr long double kLimit = 9223372036854775808.0L;  // 2^63
    const long double scaled = std::nearbyint(static_cast<long double>(value) * kCurrencyScale);
    if (!(scaled >= -kLimit && scaled < kLimit))
        return DISP_E_OVERFLOW;
    amount.int64 = static_cast<std::int64_t>(scaled);
    return S_OK;
}

HRESULT convertNumber(const VARIANT& value, VARTYPE type, VARIANT& result)
{
    const VARTYPE from = V_VT(&value);
    switch (from) {
    case VT_EMPTY:
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
        return fromInteger(value, type, result);
    case VT_BOOL:
        return fromBoolean(V_BOOL(&value), type, result);
    case VT_R4:
        return fromReal(V_R4(&value), from, type, result);
    case VT_R8:
        return fromReal(V_R8(&value), from, type, result);
    case VT_DATE:
        return fromReal(V_DATE(&value), from, type, result);
    case VT_CY:
        return fromCurrency(V_CY(&value), type, result);
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

}  // namespace automation_detail
