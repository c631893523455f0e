// Writing a date as US English text.
#include "calendar.h"
#include "date_text.h"
#include "us_english.h"

#include <cmath>

namespace automation_detail {
namespace {

std::wstring twoDigits(int number)
{
    return {static_cast<wchar_t>(L'0' + number / 10), static_cast<wchar_t>(L'0' + number % 10)};
}

}  // namespace

HRESULT textOfDate(double date, std::wstring& text)
{
    CivilTime time;
    if (!civilTimeOf(date, time))
        return E_INVALIDARG;
    // Which parts are written is decided on the value itself, not on the rounded time.
    const double wholeDays = std::trunc(date);
    const double fraction = date - wholeDays;
    const bool timeOnly = wholeDays == 0.0;
    const bool dayOnly = !timeOnly && fraction > -1e-12 && fraction < 1e-12;

    text.clear();
    if (!timeOnly)
        text = std::to_wstring(time.month) + L"/" + std::to_wstring(time.day) + L"/" +
               std::to_wstring(time.year);
    if (!dayOnly) {
        if (!text.empty())
            text += L' ';
        const int clockHour = time.hour % 12 == 0 ? 12 : time.hour % 12;
        text += std::to_wstring(clockHour) + L":" + twoDigits(time.minute) + L":" + twoDigits(time.second) +
                L" " + (time.hour < 12 ? us_english::kMorning : us_english::kAfternoon);
    }
    return S_OK;
}

}  // namespace automation_detail
