// Dates as US English text, as the platform writes and reads them.
#pragma once

#include <string>

#include "automation.h"

namespace automation_detail {

// "M/D/YYYY h:mm:ss AM": the day alone when the time is midnight, the time alone on day 0 (30
// December 1899). E_INVALIDARG for a date out of range.
HRESULT textOfDate(double date, std::wstring& text);

// Reads a date, a time or both: numbers joined by "/" or "-" (a date, month first when that
// makes a valid day, else the other orders the platform tries), ":" or "." (a time), a month's
// name or its abbreviation in place of a number, week days (ignored), "AM" and "PM" (or "A" and
// "P") after an hour, and blanks and commas between. A day with no year is in this year; years
// up to 49 are 20xx, up to 99 19xx. DISP_E_TYPEMISMATCH for anything else.
HRESULT dateFromText(const wchar_t* text, double& date);

}  // namespace automation_detail
