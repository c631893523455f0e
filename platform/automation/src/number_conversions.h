// Converting among numbers, dates, currency amounts and yes/no values, with the platform's range
// checks and rounding. The types are VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8
// ("the integer types"), VT_R4, VT_R8, VT_CY, VT_DATE and VT_BOOL; VT_INT and VT_UINT are read as
// VT_I4 and VT_UI4 before they get here.
#pragma once

#include <cstdint>

#include "automation.h"

namespace automation_detail {

// `value` (of one of the types above, or VT_EMPTY, which is zero) as `type` into `result`, whose
// type it sets. Integers of one width but the other signedness keep their bits; other integers
// must fit. Reals and amounts are rounded half to even, and must lie within half a unit of the
// target's range (within 2^62 for VT_I8); a NaN passes that test, as on the platform, and comes
// out as the platform's arithmetic makes it. A yes/no value is the 16-bit -1 or 0 widened or cut.
// Dates must lie between the years 100 and 9999 when they come from VT_I4, VT_UI4, VT_I8, VT_UI8
// or VT_R8, as the platform checks only those. DISP_E_OVERFLOW when out of range,
// DISP_E_TYPEMISMATCH for another type of value.
HRESULT convertNumber(const VARIANT& value, VARTYPE type, VARIANT& result);

// An integer exactly, whatever its width and sign.
struct ExactInteger {
    bool negative;
    std::uint64_t magnitude;
};

bool isIntegerType(VARTYPE type);
// The value of VT_EMPTY (zero), of an integer type (a 32-bit type read from its 32 bits) or of
// VT_BOOL (its 16-bit number).
ExactInteger exactIntegerOf(const VARIANT& value);
bool fitsIn(ExactInteger value, VARTYPE integerType);
// Stores the low bits of `value` as `integerType`, which it sets.
void storeInteger(ExactInteger value, VARTYPE integerType, VARIANT& result);

// A real as a currency amount: multiplied by 10,000 in extended precision and rounded half to
// even, as the platform's floating-point unit does it; DISP_E_OVERFLOW beyond 64 bits or for NaN.
HRESULT currencyFromReal(double value, CY& amount);

}  // namespace automation_detail
