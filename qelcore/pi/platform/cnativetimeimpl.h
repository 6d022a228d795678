// Platform services of the time values: the UTC clock and the local time zone.
// One implementation per platform directory.
//
// Clock values are microseconds since 1970-01-01 00:00:00 UTC on every
// platform, so that a time taken on one system means the same instant on
// another and the calendar types can work on it without platform code.
#ifndef QELCORE_PI_PLATFORM_CNATIVETIMEIMPL_H
#define QELCORE_PI_PLATFORM_CNATIVETIMEIMPL_H

namespace qpi {

class cNativeTimeImpl {
public:
  // The current UTC time in microseconds since the epoch.
  static unsigned long long now();
  // Microseconds from `then` to now; a `then` in the future (the clock was set
  // back) gives the distance the other way round.
  static unsigned long long diff(unsigned long long then);
  // Seconds east of UTC of the local time zone at the UTC instant
  // `utcSeconds` (seconds since the epoch), daylight saving included.
  static long long localOffsetAtUTC(long long utcSeconds);
  // Seconds east of UTC in effect at the local wall-clock time `localSeconds`
  // (local fields counted as if they were UTC seconds since the epoch). A time
  // skipped or repeated by a daylight-saving change gets one of the offsets
  // around it.
  static long long localOffsetAtLocal(long long localSeconds);
};

}  // namespace qpi

#endif
