#include "qelcore/std/cdate.h"

#include <cstdio>

#include "qelcore/pi/platform/cnativetimeimpl.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

namespace {

// Days from 1970-01-01 of the calendar's first and last day.
const long long MinDays = -719162;  // 0001-01-01
const long long MaxDays = 2932896;  // 9999-12-31

long long floorDiv(long long a, long long b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }
long long floorMod(long long a, long long b) { return a - floorDiv(a, b) * b; }

bool leapYear(long long y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

unsigned int monthDays(long long year, unsigned int month) {
  static const unsigned char days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && leapYear(year) ? 29u : days[month - 1];
}

// Counting from March makes the leap day the last of the year, so each
// 400-year era has the same shape.
long long daysFromCivil(long long y, unsigned int m, unsigned int d) {
  y -= m <= 2;
  const long long era = floorDiv(y, 400);
  const unsigned int yoe = static_cast<unsigned int>(y - era * 400);
  const unsigned int doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468;
}

void civilFromDays(long long z, int& year, unsigned int& month, unsigned int& day) {
  z += 719468;
  const long long era = floorDiv(z, 146097);
  const unsigned int doe = static_cast<unsigned int>(z - era * 146097);
  const unsigned int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned int mp = (5 * doy + 2) / 153;
  day = doy - (153 * mp + 2) / 5 + 1;
  month = mp < 10 ? mp + 3 : mp - 9;
  year = static_cast<int>(static_cast<long long>(yoe) + era * 400 + (month <= 2));
}

[[noreturn]] void badDateText(const cAsciiString& text, unsigned int column) {
  cSTDExceptions::throwTextParseError(qucs::cLIMessage("$QTR$Invalid date \"%text%\", expecting YYYY-MM-DD!") << text,
                                      cAsciiString("date"), 1, column);
}

}  // namespace

cDate::cDate() : miYear(1970), miMonth(1), miDay(1) {}

cDate::cDate(int year, unsigned int month, unsigned int day) : miYear(year), miMonth(month), miDay(day) {
  if (year < MinYear || year > MaxYear)
    cSTDExceptions::throwOutOfRange("cDate", "year", OutOfRangeValue, year, MinYear, MaxYear);
  if (month < 1 || month > 12) cSTDExceptions::throwOutOfRange("cDate", "month", OutOfRangeValue, month, 1, 12);
  const unsigned int last = monthDays(year, month);
  if (day < 1 || day > last) cSTDExceptions::throwOutOfRange("cDate", "day", OutOfRangeValue, day, 1, last);
}

cDate::cDate(const cTime& time, Zone zone) : cDate() {
  long long seconds = static_cast<long long>(time.toSec());
  if (zone == Local) seconds += qpi::cNativeTimeImpl::localOffsetAtUTC(seconds);
  *this = fromDays(floorDiv(seconds, 86400));
}

cDate cDate::today(Zone zone) { return cDate(cTime(), zone); }

cDate cDate::fromDays(long long days) {
  if (days < MinDays || days > MaxDays)
    cSTDExceptions::throwOutOfRange("cDate", "fromDays", OutOfRangeValue, days, MinDays, MaxDays);
  cDate d;
  civilFromDays(days, d.miYear, d.miMonth, d.miDay);
  return d;
}

cDate cDate::fromString(const cAsciiString& text) {
  // Digits at every place but the two dashes.
  const char* p = text.c_str();
  const unsigned int n = text.size();
  unsigned int value[3] = {0, 0, 0};
  for (unsigned int i = 0; i < 10; ++i) {
    if (i >= n) badDateText(text, i + 1);
    if (i == 4 || i == 7) {
      if (p[i] != '-') badDateText(text, i + 1);
      continue;
    }
    if (p[i] < '0' || p[i] > '9') badDateText(text, i + 1);
    unsigned int& field = value[i < 4 ? 0 : (i < 7 ? 1 : 2)];
    field = field * 10 + static_cast<unsigned int>(p[i] - '0');
  }
  if (n > 10) badDateText(text, 11);
  const int year = static_cast<int>(value[0]);
  if (!isValid(year, value[1], value[2])) badDateText(text, 1);
  return cDate(year, value[1], value[2]);
}

bool cDate::isLeapYear(int year) { return leapYear(year); }

unsigned int cDate::daysInMonth(int year, unsigned int month) {
  if (month < 1 || month > 12) cSTDExceptions::throwOutOfRange("cDate", "daysInMonth", OutOfRangeValue, month, 1, 12);
  return monthDays(year, month);
}

bool cDate::isValid(int year, unsigned int month, unsigned int day) {
  return year >= MinYear && year <= MaxYear && month >= 1 && month <= 12 && day >= 1 && day <= monthDays(year, month);
}

unsigned int cDate::dayOfWeek() const {
  // 1970-01-01 was a Thursday.
  return static_cast<unsigned int>(floorMod(toDays() + 3, 7)) + 1;
}

unsigned int cDate::dayOfYear() const { return static_cast<unsigned int>(toDays() - daysFromCivil(miYear, 1, 1)) + 1; }

long long cDate::toDays() const { return daysFromCivil(miYear, miMonth, miDay); }

cDate cDate::addDays(long long days) const {
  // Far beyond the calendar's range either way; keeps the sum from overflowing.
  const long long limit = 10000000ll;
  if (days < -limit || days > limit)
    cSTDExceptions::throwOutOfRange("cDate", "addDays", OutOfRangeValue, days, -limit, limit);
  return fromDays(toDays() + days);
}

cAsciiString cDate::toString() const {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%04d-%02u-%02u", miYear, miMonth, miDay);
  return cAsciiString(buf);
}

void cDate::swap(cDate& other) {
  cDate t(*this);
  *this = other;
  other = t;
}

int cDate::compare(const cDate& other) const {
  if (miYear != other.miYear) return miYear < other.miYear ? -1 : 1;
  if (miMonth != other.miMonth) return miMonth < other.miMonth ? -1 : 1;
  if (miDay != other.miDay) return miDay < other.miDay ? -1 : 1;
  return 0;
}

}  // namespace qstd
