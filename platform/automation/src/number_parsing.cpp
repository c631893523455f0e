// Reading numbers from text as the platform does: first into digits and a power of ten (or
// hexadecimal or octal digits), then into the one type asked for.
#include "number_text.h"
#include "us_english.h"

#include <algorithm>
#include <cfloat>
#include <cwchar>
#include <vector>

namespace automation_detail {
namespace {

using namespace us_english;

constexpr std::size_t kMostDigits = 1024;

struct ParsedNumber {
    std::vector<std::uint8_t> digits;  // most significant first, no trailing zeros
    int powerOfTen = 0;                // the digits are a whole number times ten to this power
    int bitsPerDigit = 0;              // 4 for hexadecimal, 3 for octal, 0 for decimal
    bool negative = false;
};

// What came before the number, which decides what may follow it.
struct Lead {
    bool plus = false;
    bool minus = false;
    bool currency = false;
    bool parenthesis = false;
    bool decimalPoint = false;
    bool zeros = false;
};

const wchar_t* skipBlanks(const wchar_t* at)
{
    while (isBlank(*at))
        ++at;
    return at;
}

// Takes `symbol` at `at` once: true when it is there and was not taken before.
bool takeOnce(const wchar_t*& at, wchar_t symbol, bool& taken)
{
    if (*at != symbol || taken)
        return false;
    taken = true;
    ++at;
    return true;
}

bool readLead(const wchar_t*& at, Lead& lead, ParsedNumber& number)
{
    for (;;) {
        if (*at == kDecimalPoint) {
            lead.decimalPoint = true;
            for (++at; *at == L'0'; ++at) {
                lead.zeros = true;
                --number.powerOfTen;
            }
            break;
        }
        if (isBlank(*at))
            at = skipBlanks(at);
        else if (*at == kThousandsSeparator)
            return false;
        else if (!(takeOnce(at, kPlusSign, lead.plus) || takeOnce(at, kMinusSign, lead.minus) ||
                   takeOnce(at, kCurrencySymbol, lead.currency) || takeOnce(at, L'(', lead.parenthesis)))
            break;
    }
    number.negative = lead.minus;
    if (!lead.currency && !lead.decimalPoint && at[0] == L'&' &&
        (asciiLower(at[1]) == L'h' || asciiLower(at[1]) == L'o')) {
        number.bitsPerDigit = asciiLower(at[1]) == L'h' ? 4 : 3;
        at += 2;
    }
    for (; *at == L'0'; ++at)
        lead.zeros = true;
    return true;
}

int hexadecimalValue(wchar_t c)
{
    const wchar_t lower = asciiLower(c);
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// Digits, separators, a decimal point and an exponent, up to the first character that is none
// of them. False for an exponent without digits, or too many hexadecimal digits (`overflowed`).
bool readDigits(const wchar_t*& at, Lead& lead, ParsedNumber& number, bool& overflowed)
{
    const bool hexadecimalOrOctal = number.bitsPerDigit != 0;
    bool decimalPoint = lead.decimalPoint;
    bool exponent = false;
    bool exponentDigitsDue = false;
    bool exponentNegative = false;
    for (; *at != L'\0'; ++at) {
        const wchar_t c = *at;
        if (isDigit(c) && exponentDigitsDue) {
            long exponentValue = 0;
            for (; isDigit(*at); ++at)
                exponentValue = std::min(exponentValue * 10 + (*at - L'0'), 100000L);
            number.powerOfTen += static_cast<int>(exponentNegative ? -exponentValue : exponentValue);
            exponentDigitsDue = false;
            --at;
        }
        else if (isDigit(c)) {
            if (number.bitsPerDigit == 3 && c >= L'8')
                break;
            if (number.digits.size() == kMostDigits && !hexadecimalOrOctal) {
                // Digits past the last one kept still count in a whole number's size.
                number.powerOfTen += decimalPoint ? 0 : 1;
                continue;
            }
            number.powerOfTen -= decimalPoint ? 1 : 0;
            number.digits.push_back(static_cast<std::uint8_t>(c - L'0'));
        }
        else if (c == kThousandsSeparator && !hexadecimalOrOctal) {
            continue;
        }
        else if (c == kDecimalPoint && !(hexadecimalOrOctal || decimalPoint || exponent)) {
            decimalPoint = true;
            for (; number.digits.empty() && at[1] == L'0'; ++at) {
                lead.zeros = true;
                --number.powerOfTen;
            }
        }
        else if (number.bitsPerDigit == 4 && hexadecimalValue(c) >= 0) {
            if (number.digits.size() == kMostDigits) {
                overflowed = true;
                return false;
            }
            number.digits.push_back(static_cast<std::uint8_t>(hexadecimalValue(c)));
        }
        else if (asciiLower(c) == L'e' && !(hexadecimalOrOctal || lead.currency || exponent)) {
            exponent = exponentDigitsDue = true;
        }
        else if (exponentDigitsDue && (c == kPlusSign || c == kMinusSign)) {
            exponentNegative = exponentNegative || c == kMinusSign;
        }
        else {
            break;
        }
    }
    return !exponentDigitsDue;
}

// Blanks, separators, signs, a closing parenthesis and a currency symbol after the number; a
// minus sign the number did not have before it, or the closing parenthesis, makes it negative.
void readTrail(const wchar_t*& at, const Lead& lead, ParsedNumber& number)
{
    const bool hexadecimalOrOctal = number.bitsPerDigit != 0;
    for (;;) {
        const wchar_t c = *at;
        if (isBlank(c)) {
            at = skipBlanks(at);
            continue;
        }
        const bool negates = (c == kMinusSign && !lead.minus) || (c == L')' && lead.parenthesis);
        const bool passes = ((c == kThousandsSeparator || c == kCurrencySymbol) && !hexadecimalOrOctal) ||
                            (c == kPlusSign && !lead.plus);
        if (!negates && !passes)
            return;
        number.negative = number.negative || negates;
        ++at;
    }
}

HRESULT parse(const wchar_t* at, ParsedNumber& number)
{
    Lead lead;
    bool overflowed = false;
    if (at == nullptr || !readLead(at, lead, number))
        return DISP_E_TYPEMISMATCH;
    if (!readDigits(at, lead, number, overflowed))
        return overflowed ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
    if (number.digits.empty() && lead.zeros)
        number.digits.push_back(0);
    if (number.bitsPerDigit == 0) {
        while (number.digits.size() > 1 && number.digits.back() == 0) {
            number.digits.pop_back();
            ++number.powerOfTen;
        }
    }
    readTrail(at, lead, number);
    // An opening parenthesis needs a closing one, unless a minus sign made the number negative.
    if ((lead.parenthesis && !number.negative) || *at != L'\0' || number.digits.empty())
        return DISP_E_TYPEMISMATCH;
    return S_OK;
}

// Hexadecimal and octal numbers fill the integer types' bits whatever their sign; VT_R4 and
// VT_R8 take them as 32-bit numbers, signed, and VT_CY not at all.
HRESULT fromBits(const ParsedNumber& number, VARTYPE type, VARIANT& result)
{
    std::uint64_t bits = 0;
    for (const std::uint8_t digit : number.digits) {
        if (bits > (UINT64_MAX >> number.bitsPerDigit) - digit)
            return DISP_E_OVERFLOW;
        bits = (bits << number.bitsPerDigit) + digit;
    }
    if (isIntegerType(type)) {
        const int width = type == VT_I1 || type == VT_UI1   ? 8
                          : type == VT_I2 || type == VT_UI2 ? 16
                          : type == VT_I4 || type == VT_UI4 ? 32
                                                            : 64;
        if (width < 64 && (bits >> width) != 0)
            return DISP_E_OVERFLOW;
        storeInteger({false, bits}, type, result);
        return S_OK;
    }
    const auto asSigned = static_cast<std::int64_t>(0 - bits);
    if (type == VT_CY || (bits > INT32_MAX && asSigned < INT32_MIN))
        return DISP_E_OVERFLOW;
    const double value = bits <= INT32_MAX ? static_cast<double>(bits) : static_cast<double>(asSigned);
    V_VT(&result) = type;
    if (type == VT_R4)
        V_R4(&result) = static_cast<float>(value);
    else
        V_R8(&result) = value;
    return S_OK;
}

// How the digits split at the decimal point, and the scale that makes them the number.
struct Scale {
    int wholeDigits;
    int fractionDigits;
    int multiplier;  // powers of ten to multiply by
    int divisor;     // powers of ten to divide by
};

Scale scaleOf(const ParsedNumber& number)
{
    const int count = static_cast<int>(number.digits.size());
    const int power = number.powerOfTen;
    if (power >= 0)
        return {count, 0, power, 0};
    if (-power >= count)
        return {0, count, 0, -power};
    return {count + power, -power, 0, -power};
}

// Rounds half to even by the digits after the point; the first of them is taken as the tenths
// even when the number has zeros after the point, as the platform does, so "0.06" rounds to 1.
HRESULT fromDigitsToInteger(const ParsedNumber& number, VARTYPE type, VARIANT& result)
{
    const Scale scale = scaleOf(number);
    std::uint64_t value = 0;
    for (int at = 0; at < scale.wholeDigits; ++at) {
        const std::uint8_t digit = number.digits[static_cast<std::size_t>(at)];
        if (value > UINT64_MAX / 10 || (value == UINT64_MAX / 10 && digit > UINT64_MAX % 10))
            return DISP_E_OVERFLOW;
        value = value * 10 + digit;
    }
    for (int at = 0; at < scale.multiplier; ++at) {
        if (value > UINT64_MAX / 10)
            return DISP_E_OVERFLOW;
        value *= 10;
    }
    if (scale.fractionDigits > 0) {
        const auto first = number.digits.begin() + scale.wholeDigits;
        const bool moreThanHalf =
            *first > 5 || (*first == 5 && std::any_of(first + 1, number.digits.end(),
                                                      [](std::uint8_t d) { return d != 0; }));
        if (moreThanHalf || (*first == 5 && (value & 1) != 0)) {
            if (value == UINT64_MAX)
                return DISP_E_OVERFLOW;
            ++value;
        }
    }
    const ExactInteger exact{number.negative && value != 0, value};
    if (!fitsIn(exact, type))
        return DISP_E_OVERFLOW;
    storeInteger(exact, type, result);
    return S_OK;
}

// The digits are gathered into a double and scaled by ten to the tenth at a time, the platform's
// way, so that the same text gives the same double.
HRESULT fromDigitsToReal(const ParsedNumber& number, VARTYPE type, VARIANT& result)
{
    static const double kPowers[] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
    Scale scale = scaleOf(number);
    double value = 0.0;
    for (const std::uint8_t digit : number.digits)
        value = value * 10.0 + digit;
    for (; scale.multiplier > 0; scale.multiplier -= std::min(scale.multiplier, 10)) {
        const int step = std::min(scale.multiplier, 10);
        if (value > DBL_MAX / kPowers[step])
            return DISP_E_OVERFLOW;
        value *= kPowers[step];
    }
    for (; scale.divisor > 0; scale.divisor -= std::min(scale.divisor, 10)) {
        const int step = std::min(scale.divisor, 10);
        if (value != 0.0 && value < DBL_MIN * kPowers[step]) {
            value = 0.0;  // too small to keep
            break;
        }
        value /= kPowers[step];
    }
    const double signedValue = number.negative ? -value : value;
    V_VT(&result) = type;
    switch (type) {
    case VT_R4:
        if (!((value <= FLT_MAX && value >= FLT_MIN) || value == 0.0))
            return DISP_E_OVERFLOW;
        V_R4(&result) = static_cast<float>(signedValue);
        return S_OK;
    case VT_R8:
        V_R8(&result) = signedValue;
        return S_OK;
    default:
        return currencyFromReal(signedValue, V_CY(&result));
    }
}

bool isWord(const wchar_t* text, const wchar_t* word)
{
    for (; *word != L'\0'; ++text, ++word) {
        if (asciiLower(*text) != asciiLower(*word))
            return false;
    }
    return *text == L'\0';
}

}  // namespace

HRESULT numberFromText(const wchar_t* text, VARTYPE type, VARIANT& result)
{
    ParsedNumber number;
    const HRESULT parsed = parse(text, number);
    if (FAILED(parsed))
        return parsed;
    if (number.bitsPerDigit != 0)
        return fromBits(number, type, result);
    return isIntegerType(type) ? fromDigitsToInteger(number, type, result)
                               : fromDigitsToReal(number, type, result);
}

HRESULT booleanFromText(const wchar_t* text, VARIANT_BOOL& value)
{
    if (text != nullptr && (isWord(text, kTrue) || isWord(text, kFalse))) {
        value = isWord(text, kTrue) ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    if (text != nullptr && (std::wcscmp(text, L"#TRUE#") == 0 || std::wcscmp(text, L"#FALSE#") == 0)) {
        value = std::wcscmp(text, L"#TRUE#") == 0 ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    VARIANT number;
    const HRESULT read = numberFromText(text, VT_R8, number);
    if (SUCCEEDED(read))
        value = V_R8(&number) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return read;
}

}  // namespace automation_detail
