#include "qelcore/pi/platform/cnativetimeimpl.h"

#include <sys/time.h>
#include <time.h>

namespace qpi {

unsigned long long cNativeTimeImpl::now() {
  struct timespec ts;
  ::clock_gettime(CLOCK_REALTIME, &ts);
  // A clock set before the epoch is reported as the epoch itself.
  if (ts.tv_sec < 0) return 0;
  return static_cast<unsigned long long>(ts.tv_sec) * 1000000ull + static_cast<unsigned long long>(ts.tv_nsec / 1000);
}

unsigned long long cNativeTimeImpl::diff(unsigned long long then) {
  unsigned long long current = now();
  return current >= then ? current - then : then - current;
}

long long cNativeTimeImpl::localOffsetAtUTC(long long utcSeconds) {
  time_t t = static_cast<time_t>(utcSeconds);
  struct tm local;
  if (::localtime_r(&t, &local) == nullptr) return 0;
  // timegm reads the local fields as UTC; the difference is the offset.
  return static_cast<long long>(::timegm(&local)) - utcSeconds;
}

long long cNativeTimeImpl::localOffsetAtLocal(long long localSeconds) {
  time_t t = static_cast<time_t>(localSeconds);
  struct tm fields;
  if (::gmtime_r(&t, &fields) == nullptr) return 0;
  fields.tm_isdst = -1;  // let the zone rules decide
  time_t utc = ::mktime(&fields);
  if (utc == static_cast<time_t>(-1)) return 0;
  return localSeconds - static_cast<long long>(utc);
}

}  // namespace qpi
