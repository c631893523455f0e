// The automation date-time: a DATE (days since midnight of 30 December 1899; the fraction is the
// time of day, counted away from that midnight for earlier dates) with a validity status.
#pragma once

#include "automation.h"

#include <cmath>

namespace ATL {

namespace date_time_detail {

constexpr double minimumDate = -657434.0;  // 1 January 100
constexpr double maximumDate = 2958466.0;  // 1 January 10000, excluded
constexpr long long unixEpochOffset = 25569;  // days from 30 December 1899 to 1 January 1970
constexpr int secondsPerDay = 86400;

// Days since 1 January 1970 in the proleptic Gregorian calendar.
inline long long daysFromCivil(long long year, int month, int day)
{
    year -= month <= 2;
    const long long era = (year >= 0 ? year : year - 399) / 400;
    const long long yearOfEra = year - era * 400;
    const long long dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const long long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

struct CivilDate {
    long long year;
    int month;
    int day;
};

inline CivilDate civilFromDays(long long days)
{
    days += 719468;
    const long long era = (days >= 0 ? days : days - 146096) / 146097;
    const long long dayOfEra = days - era * 146097;
    const long long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const long long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const long long monthIndex = (5 * dayOfYear + 2) / 153;
    const int day = static_cast<int>(dayOfYear - (153 * monthIndex + 2) / 5 + 1);
    const int month = static_cast<int>(monthIndex < 10 ? monthIndex + 3 : monthIndex - 9);
    return {yearOfEra + era * 400 + (month <= 2), month, day};
}

inline int daysInMonth(int year, int month)
{
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[month - 1];
}

}  // namespace date_time_detail

class COleDateTime {
public:
    enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

    COleDateTime() = default;  // 0.0, valid
    COleDateTime(DATE date) : m_dt(date), m_status(statusOf(date)) {}

    COleDateTime& operator=(DATE date)
    {
        m_dt = date;
        m_status = statusOf(date);
        return *this;
    }

    operator DATE() const { return m_dt; }

    DateTimeStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeStatus status) { m_status = status; }

    // Returns 0 and makes the value valid; for a date or time outside 1 January 100 to
    // 31 December 9999, 00:00:00 to 23:59:59, returns 1 and makes it invalid with value 0.0.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second)
    {
        using namespace date_time_detail;
        if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
            day > daysInMonth(year, month) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
            second < 0 || second > 59) {
            m_dt = 0.0;
            m_status = invalid;
            return 1;
        }
        const auto days = static_cast<double>(daysFromCivil(year, month, day) + unixEpochOffset);
        const double timeOfDay = (hour * 3600 + minute * 60 + second) / static_cast<double>(secondsPerDay);
        m_dt = days >= 0 ? days + timeOfDay : days - timeOfDay;
        m_status = valid;
        return 0;
    }

    // Parts of the value, rounded to the nearest second; -1 unless the value is valid.
    int GetYear() const { return partOrError(&Parts::year); }
    int GetMonth() const { return partOrError(&Parts::month); }
    int GetDay() const { return partOrError(&Parts::day); }
    int GetHour() const { return partOrError(&Parts::hour); }
    int GetMinute() const { return partOrError(&Parts::minute); }
    int GetSecond() const { return partOrError(&Parts::second); }

    // Two valid values are equal when their dates are; otherwise only the statuses are compared.
    bool operator==(const COleDateTime& other) const
    {
        if (m_status == valid && other.m_status == valid)
            return m_dt == other.m_dt;
        return m_status == other.m_status;
    }
    bool operator!=(const COleDateTime& other) const { return !(*this == other); }

    DATE m_dt = 0.0;
    DateTimeStatus m_status = valid;

private:
    struct Parts {
        int year, month, day, hour, minute, second;
    };

    static DateTimeStatus statusOf(DATE date)
    {
        return date >= date_time_detail::minimumDate && date < date_time_detail::maximumDate ? valid : invalid;
    }

    int partOrError(int Parts::*part) const
    {
        using namespace date_time_detail;
        if (m_status != valid || statusOf(m_dt) != valid)
            return -1;
        auto days = static_cast<long long>(std::trunc(m_dt));
        auto seconds = std::llround(std::fabs(m_dt - static_cast<double>(days)) * secondsPerDay);
        if (seconds >= secondsPerDay) {  // rounded up to the next midnight
            seconds -= secondsPerDay;
            ++days;
        }
        const CivilDate date = civilFromDays(days - unixEpochOffset);
        const auto secondOfDay = static_cast<int>(seconds);
        const Parts parts{static_cast<int>(date.year), date.month,       date.day,
                          secondOfDay / 3600,          secondOfDay / 60 % 60, secondOfDay % 60};
        return parts.*part;
    }
};

}  // namespace ATL
