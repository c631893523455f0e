// Writing numbers and currency amounts as text.
#include "number_text.h"

#include <cstdio>

namespace automation_detail {

std::wstring textOfInteger(ExactInteger value)
{
    return (value.negative && value.magnitude != 0 ? L"-" : L"") + std::to_wstring(value.magnitude);
}

std::wstring textOfReal(double value, int significantDigits)
{
    char buffer[64];
    const int length = std::snprintf(buffer, sizeof buffer, "%.*G", significantDigits, value);
    std::string text(buffer, static_cast<std::size_t>(length));
    if (text[0] == '-' && text.find_first_not_of("0.", 1) == std::string::npos)
        text = "0";
    return std::wstring(text.begin(), text.end());
}

std::wstring textOfCurrency(CY amount)
{
    const bool negative = amount.int64 < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(amount.int64) : static_cast<std::uint64_t>(amount.int64);
    std::wstring text = (negative ? L"-" : L"") + std::to_wstring(magnitude / 10000);
    if (const std::uint64_t fraction = magnitude % 10000; fraction != 0) {
        std::wstring decimals = std::to_wstring(fraction + 10000).substr(1);
        decimals.erase(decimals.find_last_not_of(L'0') + 1);
        text += L"." + decimals;
    }
    return text;
}

}  // namespace automation_detail
