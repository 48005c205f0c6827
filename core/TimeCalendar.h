#pragma once
// Calendar arithmetic of orvCore: leap years, days of months and years,
// weekdays, the system clock, and the split of seconds into calendar fields.
// Conventions, kept from the file formats that use them:
//  - months count from 0 in daysPerMonth, getYearDay, getMonthAndDayOfMonth
//    and from 1 in the day-month-year checks;
//  - days of the year count from 0, days of the month from 1;
//  - isLeapYear, daysPerYear, daysPerMonth and getYearDay take a full year,
//    or a year of 1900 or less as years since 1900;
//  - leapDays, getLeapDay and getWeekDay take years since 1900.
// Bad arguments throw TimeException with the codes of TimeException::Code.

#include <ctime>

#include "core/TimeException.h"
#include "core/TimeStamp.h"

namespace orvCore {

inline constexpr const char* MONTH_NAME[12] = {"January", "February", "March",     "April",   "May",      "June",
                                               "July",    "August",   "September", "October", "November", "December"};
inline constexpr const char* ABBREV_MONTH_NAME[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
inline constexpr const char* WEEKDAY_NAME[7] = {"Monday", "Tuesday", "Wednesday", "Thursday",
                                                "Friday", "Saturday", "Sunday"};
inline constexpr const char* ABBREV_WEEKDAY_NAME[7] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
// Row 0 a common year, row 1 a leap year; entry 0 is unused so that months
// can be indexed from 1.
inline constexpr int DAYS_IN_MONTHS[2][13] = {{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
                                              {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}};

inline constexpr double SECONDS_PER_DAY = 86400.0;
// What gmtime failures answer.
inline constexpr double INVALID_SYSTEM_SECONDS = 1.7976931348623157e308;

// The current UTC year; 2147483647 if the clock can't be read.
int currentYear();
// The current moment.
TimeStamp getSystemTime();
// Seconds since the start of the current UTC year (1.7976931348623157e308 on failure).
double systemTimeToSecsBgnYr();
// The same with the year; -1 and 65535 on failure.
void systemTimeToSecsBgnYr(double& secondsSinceYear, int& year);
// Seconds since the start of the current UTC day (1.7976931348623157e308 on failure).
double systemTimeToSecsBgnDay();
// Splits seconds since 1970 into the UTC year, seconds since its start and
// seconds since the start of the day; 0, 0 and 1970 for an unusable value.
void timeSinceJan1970ToSecsBgnYr(double secondsSince1970, double& secondsSinceYear, double& secondsSinceDay,
                                 int& year);

// Leap years in [1900, 1900 + yearsSince1900); 0 for a negative year.
int leapDays(int yearsSince1900);
// Weekday (0 Sunday) of 1 January of the leap-year group the year falls in;
// throws code 7 for years since 1900 of 3 or less.
int getLeapDay(int yearsSince1900);
// Gregorian rule; throws code 7 for a negative year.
bool isLeapYear(int year);
// A real date: month 1..12, day within the month, year from 1900.
bool isValidDMY(int day, int month, int year);
// As isValidDMY, throwing codes 5, 4 or 7 with a message that says why.
void checkValidDMY(int day, int month, int year);
int daysPerYear(int year);
int daysPerMonth(int year, int month);
// Weekday (0 Sunday, as tm_wday) of a day of the year.
int getWeekDay(int yearsSince1900, int yearDay);
// Day of the year (from 0) of a month (from 0) and day of the month.
int getYearDay(int month, int monthDay, int year);
// Month (from 0) and day of the month of a day of the year.
void getMonthAndDayOfMonth(int& month, int& monthDay, int year, int yearDay);

// Calendar fields of a stamp; fractions of a second are dropped.
struct tm getTimeStruct(const TimeStamp& stamp);
// Calendar fields of seconds (0 up to 1000 years) since the start of the year
// 1900 + yearsSince1900; the seconds may run past the end of that year.
struct tm getTimeStruct(double seconds, int yearsSince1900);
// Seconds from `earlier` to `later`, from their years, days of the year and clocks.
double getTimeStructDifferenceInSeconds(const struct tm& later, const struct tm& earlier);
// Brings seconds into the range of their year, moving the year as needed.
void normalizeTime(int& referenceYear, double& seconds);
// Days, hours, minutes and the seconds left over; all zero for a value that
// is not finite or is negative.
void getTimeComponents(double seconds, unsigned int& days, unsigned int& hours, unsigned int& minutes,
                       double& remainder);
// The next clock step up or down the sequence 0.001, 0.005, 0.01, 0.05, 0.1,
// 0.25, 0.5, 1, 2, 3, ...
double getNextTimeStep(bool faster, double step);

}  // namespace orvCore
