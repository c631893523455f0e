// Reading a date from US English text as the platform does: the text is first cut into at most
// six numbers, each marked with what followed it; which of them are the time is then told by
// where the time separators are, and the rest make the day in the first order that gives a real
// one.
#include "calendar.h"
#include "date_text.h"
#include "us_english.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <cwchar>
#include <iterator>

namespace automation_detail {
namespace {

using us_english::asciiLower;
using us_english::isBlank;
using us_english::isDigit;

enum Mark : unsigned {
    kTimeSeparator = 0x01,  // a ':' or '.' followed
    kDateSeparator = 0x02,  // a '/' or '-' followed, or the number is a month's name
    kMonthName = 0x04,
    kMorning = 0x08,
    kAfternoon = 0x10,
};
constexpr unsigned kHalfOfDay = kMorning | kAfternoon;
constexpr int kMostFields = 6;

struct Field {
    std::uint32_t value;
    unsigned marks;
};

struct ScannedText {
    Field fields[kMostFields] = {};
    int count = 0;
    unsigned halfOfDay = 0;  // kMorning, kAfternoon or none

    std::uint32_t value(int at) const { return fields[at].value; }
    bool hasHalfOfDay(int at) const { return (fields[at].marks & kHalfOfDay) != 0; }
};

// A number as the C library reads one into 32 bits: the largest value when it is longer.
std::uint32_t readNumber(const wchar_t*& at)
{
    std::uint64_t value = 0;
    for (; isDigit(*at); ++at)
        value = std::min<std::uint64_t>(value * 10 + static_cast<std::uint64_t>(*at - L'0'), UINT32_MAX);
    return static_cast<std::uint32_t>(value);
}

bool startsWithWord(const wchar_t* text, const wchar_t* word)
{
    for (; *word != L'\0'; ++text, ++word) {
        if (*text == L'\0' || asciiLower(*text) != asciiLower(*word))
            return false;
    }
    return true;
}

enum class WordKind { None, Month, DayOfWeek, HalfOfDay };

struct Word {
    WordKind kind = WordKind::None;
    unsigned meaning = 0;  // the month's number, or kMorning or kAfternoon
    std::size_t length = 0;
};

// The first of the locale's words that the text starts with, in the platform's order: month
// names, their abbreviations, day names, theirs, then AM and PM.
Word wordAt(const wchar_t* text)
{
    for (const auto* names : {us_english::kMonthNames, us_english::kMonthAbbreviations}) {
        for (unsigned month = 1; month <= 12; ++month) {
            if (startsWithWord(text, names[month - 1]))
                return {WordKind::Month, month, std::wcslen(names[month - 1])};
        }
    }
    for (const auto& names : {std::begin(us_english::kDayNames), std::begin(us_english::kDayAbbreviations)}) {
        for (int day = 0; day < 7; ++day) {
            if (startsWithWord(text, names[day]))
                return {WordKind::DayOfWeek, 0, std::wcslen(names[day])};
        }
    }
    if (startsWithWord(text, us_english::kMorning))
        return {WordKind::HalfOfDay, kMorning, std::wcslen(us_english::kMorning)};
    if (startsWithWord(text, us_english::kAfternoon))
        return {WordKind::HalfOfDay, kAfternoon, std::wcslen(us_english::kAfternoon)};
    return {};
}

bool markHalfOfDay(ScannedText& scanned, unsigned half)
{
    if (scanned.count == 0 || scanned.halfOfDay != 0)
        return false;
    scanned.fields[scanned.count - 1].marks |= half;
    scanned.halfOfDay = half;
    return true;
}

bool scan(const wchar_t* at, ScannedText& scanned)
{
    int dateSeparators = 0;
    while (*at != L'\0') {
        const wchar_t c = *at;
        if (isDigit(c)) {
            if (scanned.count == kMostFields)
                return false;
            scanned.fields[scanned.count++].value = readNumber(at);
            continue;
        }
        if (const Word word = wordAt(at); word.kind != WordKind::None) {
            if (word.kind == WordKind::Month) {
                if (scanned.count == kMostFields)
                    return false;
                scanned.fields[scanned.count++] = {word.meaning, kMonthName | kDateSeparator};
            }
            else if (word.kind == WordKind::HalfOfDay && !markHalfOfDay(scanned, word.meaning)) {
                return false;
            }
            at += word.length;
            continue;
        }
        const wchar_t lower = asciiLower(c);
        if ((lower == L'a' || lower == L'p') && scanned.count > 0 && scanned.halfOfDay == 0)
            markHalfOfDay(scanned, lower == L'a' ? kMorning : kAfternoon);
        else if (c == L':' || c == L'.') {
            if (scanned.count == 0 || at[1] == L'\0')
                return false;
            scanned.fields[scanned.count - 1].marks |= kTimeSeparator;
        }
        else if (c == L'-' || c == L'/') {
            if (++dateSeparators > 2 || scanned.count == 0 || at[1] == L'\0')
                return false;
            scanned.fields[scanned.count - 1].marks |= kDateSeparator;
        }
        else if (!(isBlank(c) || (c == L',' && at[1] != L'\0'))) {
            return false;
        }
        ++at;
    }
    return scanned.count > 1 || (scanned.count == 1 && scanned.halfOfDay != 0);
}

void setTime(CivilTime& time, std::uint32_t hour, std::uint32_t minute, std::uint32_t second)
{
    // The platform keeps each part in 16 bits.
    time.hour = static_cast<std::uint16_t>(hour);
    time.minute = static_cast<std::uint16_t>(minute);
    time.second = static_cast<std::uint16_t>(second);
}

// Takes the time out of the numbers by where the time separators follow them (a bit for each of
// the first five numbers), and says where the numbers of the day start and how many there are.
bool takeTime(const ScannedText& s, CivilTime& time, int& firstOfDay, int& partsOfDay)
{
    unsigned separated = 0;
    for (int at = 0; at < 5; ++at)
        separated |= (s.fields[at].marks & kTimeSeparator) << at;
    int count = s.count;
    const bool half = s.halfOfDay != 0;
    bool valid = true;
    firstOfDay = 0;
    switch (separated) {
    case 0x01:  // h:m, then a day of none, two or three numbers
        valid = !(count > 3 && (s.hasHalfOfDay(2) || s.hasHalfOfDay(3) || s.hasHalfOfDay(4))) &&
                (count == 2 || count == 4 || count == 5);
        setTime(time, s.value(0), s.value(1), 0);
        count -= 2;
        firstOfDay = 2;
        break;
    case 0x03:  // h:m:s, then a day of none, two or three numbers
        valid = !(count > 4 && (s.hasHalfOfDay(3) || s.hasHalfOfDay(4) || s.hasHalfOfDay(5))) &&
                (count == 3 || count == 5 || count == 6);
        setTime(time, s.value(0), s.value(1), s.value(2));
        count -= 3;
        firstOfDay = 3;
        break;
    case 0x04:  // a day of two numbers, then h:m
        valid = count == 4 && !s.hasHalfOfDay(0) && !s.hasHalfOfDay(1);
        setTime(time, s.value(2), s.value(3), 0);
        count -= 2;
        break;
    case 0x00:  // no time separator: an hour with AM or PM before or after a day, or a day alone
        if (count == 1 && half) {
            setTime(time, s.value(0), 0, 0);
            count = 0;
        }
        else if (count > 4 || (count < 3 && half)) {
            valid = false;
        }
        else if (count == 3 && s.hasHalfOfDay(0)) {
            setTime(time, s.value(0), 0, 0);
            count = 2;
            firstOfDay = 1;
        }
        else if (count == 3 && s.hasHalfOfDay(2)) {
            setTime(time, s.value(2), 0, 0);
            count = 2;
        }
        else if (count == 4) {
            valid = s.hasHalfOfDay(0) || s.hasHalfOfDay(3);
            setTime(time, s.value(s.hasHalfOfDay(0) ? 0 : 3), 0, 0);
            firstOfDay = s.hasHalfOfDay(0) ? 1 : 0;
            count = 3;
        }
        else {
            valid = !half;
        }
        break;
    case 0x08:  // a day of three numbers, then h:m
        valid = count == 5 && !s.hasHalfOfDay(0) && !s.hasHalfOfDay(1) && !s.hasHalfOfDay(2);
        setTime(time, s.value(3), s.value(4), 0);
        count -= 2;
        break;
    case 0x0C:  // a day of two numbers, then h:m:s
        valid = count == 5 && !s.hasHalfOfDay(0) && !s.hasHalfOfDay(1);
        setTime(time, s.value(2), s.value(3), s.value(4));
        count -= 3;
        break;
    case 0x18:  // a day of three numbers, then h:m:s
        valid = !s.hasHalfOfDay(0) && !s.hasHalfOfDay(1) && !s.hasHalfOfDay(2);
        setTime(time, s.value(3), s.value(4), s.value(5));
        count -= 3;
        break;
    default:
        valid = false;
    }
    partsOfDay = count;
    return valid;
}

enum Order : unsigned {
    kMonthDayYear = 0x01,
    kYearMonthDay = 0x02,
    kYearDayMonth = 0x04,
    kDayMonthYear = 0x08,
    kMonthYearDay = 0x10,  // only for a month and a year without a day
};

bool isRealDay(std::uint32_t day, std::uint32_t month, std::uint32_t year)
{
    // Whether a year is a leap year depends on its remainder by 400 alone.
    return day != 0 && month != 0 && month <= 12 &&
           day <=
               static_cast<std::uint32_t>(daysInMonth(static_cast<int>(month), static_cast<int>(year % 400)));
}

// Tries the orders as the platform does: the locale's own (month first), then those that keep
// the month before the day, then the rest; within a try, in a fixed sequence.
bool arrangeDay(std::uint32_t first, std::uint32_t second, std::uint32_t third, unsigned orders,
                CivilTime& time)
{
    struct Reading {
        Order order;
        std::uint32_t day, month, year;
    };
    const Reading readings[] = {
        {kMonthDayYear, second, first, third}, {kYearMonthDay, third, second, first},
        {kYearDayMonth, second, third, first}, {kDayMonthYear, first, second, third},
        {kMonthYearDay, third, first, second},
    };
    for (int attempt = 0; orders != 0; ++attempt) {
        const unsigned tried = attempt == 0   ? orders & kMonthDayYear
                               : attempt == 1 ? orders & ~(kDayMonthYear | kYearDayMonth)
                                              : orders;
        for (const Reading& reading : readings) {
            if ((tried & reading.order) == 0)
                continue;
            if (isRealDay(reading.day, reading.month, reading.year)) {
                const std::uint32_t year = reading.year <= 49   ? reading.year + 2000
                                           : reading.year <= 99 ? reading.year + 1900
                                                                : reading.year;
                time.day = static_cast<int>(reading.day);
                time.month = static_cast<int>(reading.month);
                time.year = static_cast<std::uint16_t>(year);
                return true;
            }
            orders &= ~reading.order;
        }
    }
    return false;
}

int thisYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm universal{};
    gmtime_r(&now, &universal);
    return universal.tm_year + 1900;
}

bool placeDay(const ScannedText& s, int first, int count, CivilTime& time)
{
    if (count == 0) {
        time.year = 1899;
        time.month = 12;
        time.day = 30;
        return true;
    }
    const std::uint32_t one = s.value(first);
    const std::uint32_t two = s.value(first + 1);
    const std::uint32_t three = count == 2 ? static_cast<std::uint32_t>(thisYear()) : s.value(first + 2);
    unsigned orders = kMonthDayYear | kDayMonthYear | (count > 2 ? kYearMonthDay | kYearDayMonth : 0u);
    if (s.fields[first].marks & kMonthName)
        orders = kMonthDayYear;
    else if (s.fields[first + 1].marks & kMonthName)
        orders = kDayMonthYear | (count > 2 ? unsigned{kYearMonthDay} : 0u);
    else if (count > 2 && (s.fields[first + 2].marks & kMonthName))
        orders = kYearDayMonth;
    // Two numbers that make no day of this year are read as a month and a year.
    return arrangeDay(one, two, three, orders, time) ||
           (count == 2 && arrangeDay(one, two, 1, kYearMonthDay | kMonthYearDay, time));
}

bool placeHalfOfDay(unsigned half, CivilTime& time)
{
    if (time.hour > 23 || time.minute > 59 || time.second > 59)
        return false;
    if (time.hour < 12 && half == kAfternoon)
        time.hour += 12;
    else if (time.hour == 12 && half == kMorning)
        time.hour = 0;
    return true;
}

}  // namespace

HRESULT dateFromText(const wchar_t* text, double& date)
{
    ScannedText scanned;
    CivilTime time{};
    int firstOfDay = 0;
    int partsOfDay = 0;
    if (text == nullptr || !scan(text, scanned) || !takeTime(scanned, time, firstOfDay, partsOfDay) ||
        !placeDay(scanned, firstOfDay, partsOfDay, time) || !placeHalfOfDay(scanned.halfOfDay, time) ||
        !dateOf(time, date))
        return DISP_E_TYPEMISMATCH;
    return S_OK;
}

}  // namespace automation_detail
