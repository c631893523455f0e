// The one locale the portable runtime writes and reads texts in: US English, with the platform's
// own words and signs for it.
#pragma once

namespace automation_detail::us_english {

constexpr wchar_t kDecimalPoint = L'.';
constexpr wchar_t kThousandsSeparator = L',';
constexpr wchar_t kMinusSign = L'-';
constexpr wchar_t kPlusSign = L'+';
constexpr wchar_t kCurrencySymbol = L'$';

constexpr const wchar_t* kTrue = L"True";
constexpr const wchar_t* kFalse = L"False";

constexpr const wchar_t* kMonthNames[] = {L"January",   L"February", L"March",    L"April",
                                          L"May",       L"June",     L"July",     L"August",
                                          L"September", L"October",  L"November", L"December"};
constexpr const wchar_t* kMonthAbbreviations[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                                  L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
constexpr const wchar_t* kDayNames[] = {L"Monday", L"Tuesday",  L"Wednesday", L"Thursday",
                                        L"Friday", L"Saturday", L"Sunday"};
constexpr const wchar_t* kDayAbbreviations[] = {L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat", L"Sun"};
constexpr const wchar_t* kMorning = L"AM";
constexpr const wchar_t* kAfternoon = L"PM";

// White space as the platform's character classes have it: the ASCII controls and space, and the
// Unicode spaces (the no-break space among them).
constexpr bool isBlank(wchar_t c)
{
    return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
           c == 0x3000;
}

constexpr bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

// The locale's words are ASCII: a letter of them matches its own case and the other.
constexpr wchar_t asciiLower(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

}  // namespace automation_detail::us_english
