#include "qelcore/std/cdatetime.h"

#include <cstdio>

#include "qelcore/pi/platform/cnativetimeimpl.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

namespace {

const long long MicrosPerSecond = 1000000;
const long long MicrosPerDay = 86400 * MicrosPerSecond;

long long floorDiv(long long a, long long b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

[[noreturn]] void badText(const cAsciiString& text, unsigned int column) {
  cSTDExceptions::throwTextParseError(
      qucs::cLIMessage("$QTR$Invalid date and time \"%text%\", expecting YYYY-MM-DDTHH:MM:SS!") << text,
      cAsciiString("date and time"), 1, column);
}

// Reads exactly `digits` decimal digits at `pos`.
unsigned int digitsAt(const cAsciiString& text, unsigned int& pos, unsigned int digits) {
  unsigned int value = 0;
  for (unsigned int i = 0; i < digits; ++i, ++pos) {
    if (pos >= text.size() || text[pos] < '0' || text[pos] > '9') badText(text, pos + 1);
    value = value * 10 + static_cast<unsigned int>(text[pos] - '0');
  }
  return value;
}

void charAt(const cAsciiString& text, unsigned int& pos, char c) {
  if (pos >= text.size() || text[pos] != c) badText(text, pos + 1);
  ++pos;
}

}  // namespace

cDateTime::cDateTime() : miHour(0), miMinute(0), miSecond(0), miMicrosecond(0), meZone(cDate::UTC), miOffset(0) {}

cDateTime::cDateTime(const cTime& time, Zone zone) : cDateTime() {
  // A cTime beyond the year 9999 does not fit into a signed count; fromDays
  // rejects it either way.
  const unsigned long long limit = 0x7FFFFFFFFFFFFFFFull;
  if (time.get() > limit)
    cSTDExceptions::throwOutOfRange("cDateTime", "cDateTime", OutOfRangeValue, static_cast<long long>(time.toSec()), 0,
                                    static_cast<long long>(limit / 1000000));
  setInstant(static_cast<long long>(time.get()), zone);
}

cDateTime::cDateTime(const cDate& date, unsigned int hour, unsigned int minute, unsigned int second,
                     unsigned int microsecond, Zone zone)
    : mDate(date),
      miHour(hour),
      miMinute(minute),
      miSecond(second),
      miMicrosecond(microsecond),
      meZone(zone),
      miOffset(0) {
  if (hour > 23) cSTDExceptions::throwOutOfRange("cDateTime", "hour", OutOfRangeValue, hour, 0, 23);
  if (minute > 59) cSTDExceptions::throwOutOfRange("cDateTime", "minute", OutOfRangeValue, minute, 0, 59);
  if (second > 59) cSTDExceptions::throwOutOfRange("cDateTime", "second", OutOfRangeValue, second, 0, 59);
  if (microsecond > 999999)
    cSTDExceptions::throwOutOfRange("cDateTime", "microsecond", OutOfRangeValue, microsecond, 0, 999999);
  if (zone == cDate::Local) {
    miOffset = static_cast<int>(qpi::cNativeTimeImpl::localOffsetAtLocal(fieldSeconds()));
    // A wall-clock time skipped by a daylight-saving change becomes the
    // time it names after the change.
    setInstant(toMicroseconds(), cDate::Local);
  }
}

cDateTime::cDateTime(int year, unsigned int month, unsigned int day, unsigned int hour, unsigned int minute,
                     unsigned int second, unsigned int microsecond, Zone zone)
    : cDateTime(cDate(year, month, day), hour, minute, second, microsecond, zone) {}

cDateTime cDateTime::now(Zone zone) { return cDateTime(cTime(), zone); }

cDateTime cDateTime::fromString(const cAsciiString& text) {
  unsigned int pos = 0;
  const int year = static_cast<int>(digitsAt(text, pos, 4));
  charAt(text, pos, '-');
  const unsigned int month = digitsAt(text, pos, 2);
  charAt(text, pos, '-');
  const unsigned int day = digitsAt(text, pos, 2);
  if (pos >= text.size() || (text[pos] != 'T' && text[pos] != ' ')) badText(text, pos + 1);
  ++pos;
  const unsigned int hour = digitsAt(text, pos, 2);
  charAt(text, pos, ':');
  const unsigned int minute = digitsAt(text, pos, 2);
  charAt(text, pos, ':');
  const unsigned int second = digitsAt(text, pos, 2);
  unsigned int micro = 0;
  if (pos < text.size() && text[pos] == '.') {
    ++pos;
    unsigned int digits = 0, scale = 1000000;
    while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9' && digits < 6) {
      scale /= 10;
      micro += static_cast<unsigned int>(text[pos] - '0') * scale;
      ++pos;
      ++digits;
    }
    if (digits == 0) badText(text, pos + 1);
  }
  long long offset = 0;
  if (pos < text.size() && text[pos] == 'Z') {
    ++pos;
  } else if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
    const long long sign = text[pos] == '-' ? -1 : 1;
    ++pos;
    const unsigned int oh = digitsAt(text, pos, 2);
    charAt(text, pos, ':');
    const unsigned int om = digitsAt(text, pos, 2);
    if (oh > 23 || om > 59) badText(text, pos - 4);
    offset = sign * (oh * 3600ll + om * 60ll);
  }
  if (pos != text.size()) badText(text, pos + 1);
  if (!cDate::isValid(year, month, day) || hour > 23 || minute > 59 || second > 59) badText(text, 1);

  cDateTime result(cDate(year, month, day), hour, minute, second, micro, cDate::UTC);
  if (offset != 0) result = result.addMicroseconds(-offset * MicrosPerSecond);
  return result;
}

long long cDateTime::fieldSeconds() const {
  return mDate.toDays() * 86400 + miHour * 3600ll + miMinute * 60ll + miSecond;
}

long long cDateTime::toMicroseconds() const { return (fieldSeconds() - miOffset) * MicrosPerSecond + miMicrosecond; }

cTime cDateTime::toTime() const {
  const long long us = toMicroseconds();
  if (us < 0) cSTDExceptions::throwOutOfRange("cDateTime", "toTime", OutOfRangeValue, us, 0, 0x7FFFFFFFFFFFFFFFll);
  return cTime(static_cast<unsigned long long>(us));
}

void cDateTime::setInstant(long long utcMicroseconds, Zone zone) {
  const long long utcSeconds = floorDiv(utcMicroseconds, MicrosPerSecond);
  const long long offset = zone == cDate::Local ? qpi::cNativeTimeImpl::localOffsetAtUTC(utcSeconds) : 0;
  const long long local = utcMicroseconds + offset * MicrosPerSecond;
  const long long days = floorDiv(local, MicrosPerDay);
  const long long inDay = local - days * MicrosPerDay;
  mDate = cDate::fromDays(days);  // throws beyond the calendar, before anything else changes
  miHour = static_cast<unsigned int>(inDay / (3600 * MicrosPerSecond));
  miMinute = static_cast<unsigned int>(inDay / (60 * MicrosPerSecond) % 60);
  miSecond = static_cast<unsigned int>(inDay / MicrosPerSecond % 60);
  miMicrosecond = static_cast<unsigned int>(inDay % MicrosPerSecond);
  meZone = zone;
  miOffset = static_cast<int>(offset);
}

cDateTime cDateTime::toZone(Zone zone) const {
  cDateTime result;
  result.setInstant(toMicroseconds(), zone);
  return result;
}

cDateTime cDateTime::addDays(long long days) const {
  return cDateTime(mDate.addDays(days), miHour, miMinute, miSecond, miMicrosecond, meZone);
}

cDateTime cDateTime::addMicroseconds(long long microseconds) const {
  // Far beyond the calendar's range (about 20000 years); keeps the sum exact.
  const long long limit = 20000ll * 366 * MicrosPerDay;
  if (microseconds < -limit || microseconds > limit)
    cSTDExceptions::throwOutOfRange("cDateTime", "addMicroseconds", OutOfRangeValue, microseconds, -limit, limit);
  cDateTime result;
  result.setInstant(toMicroseconds() + microseconds, meZone);
  return result;
}

cAsciiString cDateTime::timeString() const {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%02u:%02u:%02u", miHour, miMinute, miSecond);
  return cAsciiString(buf);
}

cAsciiString cDateTime::toString() const {
  cAsciiString s = mDate.toString();
  s += ' ';
  s += timeString();
  return s;
}

cAsciiString cDateTime::toIsoString(bool withMicroseconds) const {
  cAsciiString s = mDate.toString();
  s += 'T';
  s += timeString();
  char buf[16];
  if (withMicroseconds) {
    std::snprintf(buf, sizeof buf, ".%06u", miMicrosecond);
    s += buf;
  }
  if (meZone == cDate::UTC) {
    s += 'Z';
  } else {
    const unsigned int minutes = static_cast<unsigned int>((miOffset < 0 ? -miOffset : miOffset) / 60);
    std::snprintf(buf, sizeof buf, "%c%02u:%02u", miOffset < 0 ? '-' : '+', minutes / 60, minutes % 60);
    s += buf;
  }
  return s;
}

void cDateTime::swap(cDateTime& other) {
  cDateTime t(*this);
  *this = other;
  other = t;
}

}  // namespace qstd
