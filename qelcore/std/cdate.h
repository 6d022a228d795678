/// \class qstd::cDate
/// A calendar date (proleptic Gregorian calendar, years 1 to 9999).
///
/// Dates are plain values: every constructor validates its fields and throws
/// the library's out-of-range exception for a field that does not exist
/// (month 13, February 30, year 0), so a cDate always names a real day.
#ifndef QELCORE_STD_CDATE_H
#define QELCORE_STD_CDATE_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ctime.h"

namespace qstd {

class QEL_EXPORT cDate {
public:
  /// The time zone in which a cTime is read as a calendar date.
  enum Zone { UTC = 0, Local = 1 };
  /// The calendar's range of years.
  enum { MinYear = 1, MaxYear = 9999 };

  /// 1970-01-01, the day the clock counts from.
  cDate();
  /// Throws cOutOfRangeException for a day that does not exist.
  cDate(int year, unsigned int month, unsigned int day);
  /// The day on which `time` falls in `zone`.
  explicit cDate(const cTime& time, Zone zone = UTC);

  /// The current day in `zone`.
  static cDate today(Zone zone = Local);
  /// The date `days` days after 1970-01-01 (negative: before it).
  static cDate fromDays(long long days);
  /// Parses "YYYY-MM-DD"; anything else throws cTextParseException.
  static cDate fromString(const cAsciiString& text);

  /// Whether `year` has a February 29th.
  static bool isLeapYear(int year);
  /// 28 to 31; throws cOutOfRangeException for a month outside 1..12.
  static unsigned int daysInMonth(int year, unsigned int month);
  /// Whether the fields name a day of the calendar; never throws.
  static bool isValid(int year, unsigned int month, unsigned int day);

  ///@{
  /// The fields: month and day count from 1.
  int year() const { return miYear; }
  unsigned int month() const { return miMonth; }
  unsigned int day() const { return miDay; }
  ///@}
  /// 1 = Monday ... 7 = Sunday.
  unsigned int dayOfWeek() const;
  /// 1 for January 1st.
  unsigned int dayOfYear() const;

  /// Days since 1970-01-01 (negative before it).
  long long toDays() const;
  /// The date `days` days later (negative: earlier); throws cOutOfRangeException when the result leaves the calendar.
  cDate addDays(long long days) const;
  /// Days from this date to `other` (negative when `other` is earlier).
  long long daysTo(const cDate& other) const { return other.toDays() - toDays(); }

  /// "YYYY-MM-DD".
  cAsciiString toString() const;

  ///@{
  /// Compare in calendar order.
  bool operator==(const cDate& other) const { return compare(other) == 0; }
  bool operator!=(const cDate& other) const { return compare(other) != 0; }
  bool operator<(const cDate& other) const { return compare(other) < 0; }
  bool operator<=(const cDate& other) const { return compare(other) <= 0; }
  bool operator>(const cDate& other) const { return compare(other) > 0; }
  bool operator>=(const cDate& other) const { return compare(other) >= 0; }
  ///@}

  /// Exchanges the two dates.
  void swap(cDate& other);

private:
  int compare(const cDate& other) const;

  int miYear;
  unsigned int miMonth;
  unsigned int miDay;
};

}  // namespace qstd

#endif
