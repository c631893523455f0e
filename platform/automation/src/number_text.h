// Numbers, currency amounts and yes/no values as US English text, both ways, as the platform
// writes and reads them.
#pragma once

#include <string>

#include "automation.h"
#include "number_conversions.h"

namespace automation_detail {

std::wstring textOfInteger(ExactInteger value);

// To `significantDigits` digits (7 for VT_R4, 15 for VT_R8), trailing zeros dropped, in the
// exponent form when the exponent is below -4 or reaches that many digits: "1.5", "0.0001",
// "1E-05", "1E+20", "1.23456789012346E+15". Minus zero is "0"; NaN and the infinities are
// "NAN", "INF" and "-INF".
std::wstring textOfReal(double value, int significantDigits);

// Every decimal kept, trailing zeros dropped: "1234.5678", "-0.5", "12".
std::wstring textOfCurrency(CY amount);

// `type` is one of the integer types, VT_R4, VT_R8 or VT_CY. Reads blanks, a sign, a currency
// symbol and an opening parenthesis in any order before the number, digits with thousands
// separators anywhere after the first, a decimal point, an exponent, or a hexadecimal ("&H1F")
// or octal ("&O17") number, and after it blanks, separators, a sign the number did not have
// before it, a closing parenthesis (which makes it negative) and a currency symbol. Integers are
// rounded half to even from the text's own digits. DISP_E_TYPEMISMATCH for any other text (and a
// null one), DISP_E_OVERFLOW for a number out of the type's range; hexadecimal and octal numbers
// fill the integer types' bits, and reach VT_R4 and VT_R8 only within 32 signed bits, VT_CY never.
HRESULT numberFromText(const wchar_t* text, VARTYPE type, VARIANT& result);

// "True" and "False" in any case, "#TRUE#" and "#FALSE#", or a number, true when it is not zero.
HRESULT booleanFromText(const wchar_t* text, VARIANT_BOOL& value);

}  // namespace automation_detail
