// Day counts to calendar days and back, in the proleptic Gregorian calendar.
#include "calendar.h"

#include <cmath>

namespace automation_detail {
namespace {

constexpr double kEarliestDay = -657434.0;  // 1 January 100
constexpr double kLatestDay = 2958465.0;    // 31 December 9999
constexpr int kDaysFrom1899To1970 = 25569;

// Days since 1 January 1970 of a calendar day, counted in eras of 400 years.
int daysSince1970(int year, int month, int day)
{
    year -= month <= 2 ? 1 : 0;
    const int era = (year >= 0 ? year : year - 399) / 400;
    const int yearOfEra = year - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

void calendarDayOf(int daysSince1970, CivilTime& time)
{
    const int shifted = daysSince1970 + 719468;
    const int era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
    const int dayOfEra = shifted - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    time.day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    time.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    time.year = yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0);
}

// A second rounded up past 23:59:59 starts the next day.
void carryOneSecond(CivilTime& time)
{
    if (++time.second < 60)
        return;
    time.second = 0;
    if (++time.minute < 60)
        return;
    time.minute = 0;
    if (++time.hour < 24)
        return;
    time.hour = 0;
    if (++time.day <= daysInMonth(time.month, time.year))
        return;
    time.day = 1;
    if (++time.month <= 12)
        return;
    time.month = 1;
    ++time.year;
}

}  // namespace

bool isLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysInMonth(int month, int year)
{
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

bool civilTimeOf(double date, CivilTime& time)
{
    if (std::isnan(date)) {
        time = {1899, 12, 30, 0, 0, 0};
        return true;
    }
    if (date <= kEarliestDay - 1.0 || date >= kLatestDay + 1.0)
        return false;
    const double wholeDays = std::trunc(date);
    calendarDayOf(static_cast<int>(wholeDays) - kDaysFrom1899To1970, time);

    // The platform nudges the time up by a hundred-billionth of a day before it takes the hours,
    // minutes and seconds apart, then rounds the rest to the nearest second; the same steps in the
    // same order give the same second.
    double fraction = std::fabs(date - wholeDays) + 1e-11;
    if (fraction >= 1.0)
        fraction -= 1e-11;
    fraction *= 24.0;
    time.hour = static_cast<int>(fraction);
    fraction = (fraction - time.hour) * 60.0;
    time.minute = static_cast<int>(fraction);
    fraction = (fraction - time.minute) * 60.0;
    time.second = static_cast<int>(fraction);
    if (fraction - time.second > 0.5)
        carryOneSecond(time);
    return true;
}

bool dateOf(const CivilTime& time, double& date)
{
    if (time.year > 9999)
        return false;
    double value = daysSince1970(time.year, time.month, time.day) + kDaysFrom1899To1970;
    // Before 30 December 1899 the time counts away from zero, as the days do.
    const double direction = value < 0.0 ? -1.0 : 1.0;
    value += time.hour / 24.0 * direction;
    value += time.minute / 1440.0 * direction;
    value += time.second / 86400.0 * direction;
    date = value;
    return true;
}

}  // namespace automation_detail
