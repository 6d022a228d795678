/// \class qstd::cDateTime
/// A point in time as calendar fields (date, hour, minute, second,
/// microsecond) in UTC or in the local time zone.
///
/// A cDateTime keeps the offset of its zone at that instant, so it always
/// names one instant: comparisons compare instants, whatever the zones, and
/// toTime() gives the cTime back. Local times take the zone's rules for the
/// date in question, daylight saving included. Fields are validated like those
/// of cDate; a second of 60 is not accepted.
#ifndef QELCORE_STD_CDATETIME_H
#define QELCORE_STD_CDATETIME_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cdate.h"
#include "qelcore/std/ctime.h"

namespace qstd {

class QEL_EXPORT cDateTime {
public:
  /// UTC or local time.
  typedef cDate::Zone Zone;

  /// 1970-01-01 00:00:00 UTC.
  cDateTime();
  /// The instant `time` in `zone`; throws cOutOfRangeException beyond the calendar.
  explicit cDateTime(const cTime& time, Zone zone = cDate::UTC);
  ///@{
  /// From fields read in `zone`; throws cOutOfRangeException for a field that does not exist.
  /// A local time skipped by a daylight-saving change becomes the time it names after the change.
  cDateTime(const cDate& date, unsigned int hour, unsigned int minute, unsigned int second,
            unsigned int microsecond = 0, Zone zone = cDate::UTC);
  cDateTime(int year, unsigned int month, unsigned int day, unsigned int hour, unsigned int minute, unsigned int second,
            unsigned int microsecond = 0, Zone zone = cDate::UTC);
  ///@}

  /// The current instant in `zone`.
  static cDateTime now(Zone zone = cDate::Local);
  /// Parses "YYYY-MM-DDTHH:MM:SS" (a blank instead of the T is accepted),
  /// optionally followed by a fraction of up to six digits and by "Z" or an
  /// offset "+HH:MM" / "-HH:MM". A time without a zone is UTC; one with an
  /// offset is converted to UTC. Anything else throws cTextParseException.
  static cDateTime fromString(const cAsciiString& text);

  ///@{
  /// The fields in the object's zone, and the zone.
  const cDate& date() const { return mDate; }
  int year() const { return mDate.year(); }
  unsigned int month() const { return mDate.month(); }
  unsigned int day() const { return mDate.day(); }
  unsigned int dayOfWeek() const { return mDate.dayOfWeek(); }
  unsigned int hour() const { return miHour; }
  unsigned int minute() const { return miMinute; }
  unsigned int second() const { return miSecond; }
  unsigned int msec() const { return miMicrosecond / 1000; }
  unsigned int usec() const { return miMicrosecond; }
  Zone zone() const { return meZone; }
  ///@}
  /// Seconds east of UTC (0 for UTC).
  int utcOffset() const { return miOffset; }

  /// The instant as microseconds since 1970-01-01 UTC (negative before it).
  long long toMicroseconds() const;
  /// The instant as a cTime; an instant before 1970 throws out of range.
  cTime toTime() const;
  /// The same instant in another zone.
  cDateTime toZone(Zone zone) const;
  ///@{
  /// toZone() to UTC, to local time.
  cDateTime toUTC() const { return toZone(cDate::UTC); }
  cDateTime toLocal() const { return toZone(cDate::Local); }
  ///@}

  /// The instant moved by whole days of calendar time in the same zone (local
  /// times keep their wall-clock time across a daylight-saving change).
  cDateTime addDays(long long days) const;
  /// The instant moved by `microseconds`, in the same zone.
  cDateTime addMicroseconds(long long microseconds) const;
  /// Microseconds from this instant to `other`, negative when `other` is earlier.
  long long microsecondsTo(const cDateTime& other) const { return other.toMicroseconds() - toMicroseconds(); }

  /// "HH:MM:SS".
  cAsciiString timeString() const;
  /// "YYYY-MM-DD".
  cAsciiString dateString() const { return mDate.toString(); }
  /// "YYYY-MM-DD HH:MM:SS".
  cAsciiString toString() const;
  /// "YYYY-MM-DDTHH:MM:SS", with ".ffffff" when asked for, then "Z" in UTC
  /// or the offset ("+01:00") in local time.
  cAsciiString toIsoString(bool withMicroseconds = false) const;

  ///@{
  /// Compare instants, whatever the zones.
  bool operator==(const cDateTime& other) const { return toMicroseconds() == other.toMicroseconds(); }
  bool operator!=(const cDateTime& other) const { return toMicroseconds() != other.toMicroseconds(); }
  bool operator<(const cDateTime& other) const { return toMicroseconds() < other.toMicroseconds(); }
  bool operator<=(const cDateTime& other) const { return toMicroseconds() <= other.toMicroseconds(); }
  bool operator>(const cDateTime& other) const { return toMicroseconds() > other.toMicroseconds(); }
  bool operator>=(const cDateTime& other) const { return toMicroseconds() >= other.toMicroseconds(); }
  ///@}

  /// Exchanges the two values.
  void swap(cDateTime& other);

private:
  /// Fields of the instant `utcMicroseconds` in `zone`.
  void setInstant(long long utcMicroseconds, Zone zone);
  /// Seconds of the fields counted from 1970-01-01 00:00:00 as if they were UTC.
  long long fieldSeconds() const;

  cDate mDate;
  unsigned int miHour;
  unsigned int miMinute;
  unsigned int miSecond;
  unsigned int miMicrosecond;
  Zone meZone;
  int miOffset;
};

}  // namespace qstd

#endif
