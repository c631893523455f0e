// Dates as automation keeps them: a count of days since 30 December 1899 whose fraction is the
// time of day (for days before that one too the fraction counts forwards from midnight, so
// -1.25 is 29 December 1899, 6 AM), between 1 January 100 and 31 December 9999.
#pragma once

namespace automation_detail {

struct CivilTime {
    int year;
    int month;  // 1 to 12
    int day;    // 1 to the length of the month
    int hour;   // 0 to 23
    int minute;
    int second;
};

// The calendar day and the time of `date`, its time rounded to the nearest second (which may
// carry into the next day); false outside the range. A NaN reads as day 0 at midnight, as the
// platform's arithmetic leaves it.
bool civilTimeOf(double date, CivilTime& time);

// The date of a valid day and time from the year 100 on; false past the year 9999.
bool dateOf(const CivilTime& time, double& date);

bool isLeapYear(int year);
int daysInMonth(int month, int year);

}  // namespace automation_detail
