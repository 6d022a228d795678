#include "qelcore/pi/platform/cnativetimeimpl.h"

#include <windows.h>

namespace qpi {

namespace {

// FILETIME counts 100 ns units since 1601-01-01; this many lie before 1970.
const unsigned long long EpochIn100ns = 116444736000000000ull;

unsigned long long toUnits(const FILETIME& ft) {
  return (static_cast<unsigned long long>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
}

FILETIME fromSeconds(long long seconds) {
  unsigned long long units = static_cast<unsigned long long>(seconds) * 10000000ull + EpochIn100ns;
  FILETIME ft;
  ft.dwLowDateTime = static_cast<DWORD>(units & 0xFFFFFFFFu);
  ft.dwHighDateTime = static_cast<DWORD>(units >> 32);
  return ft;
}

long long toSeconds(const FILETIME& ft) {
  // Whole seconds only ever come back here, so the division is exact.
  return (static_cast<long long>(toUnits(ft)) - static_cast<long long>(EpochIn100ns)) / 10000000ll;
}

// Windows cannot represent times before 1601; such times get the offset of 1601.
long long clampSeconds(long long seconds) {
  const long long earliest = -11644473600ll + 86400;
  return seconds < earliest ? earliest : seconds;
}

}  // namespace

unsigned long long cNativeTimeImpl::now() {
  FILETIME ft;
  ::GetSystemTimeAsFileTime(&ft);
  unsigned long long units = toUnits(ft);
  if (units < EpochIn100ns) return 0;
  return (units - EpochIn100ns) / 10;
}

unsigned long long cNativeTimeImpl::diff(unsigned long long then) {
  unsigned long long current = now();
  return current >= then ? current - then : then - current;
}

long long cNativeTimeImpl::localOffsetAtUTC(long long utcSeconds) {
  utcSeconds = clampSeconds(utcSeconds);
  TIME_ZONE_INFORMATION zone;
  if (::GetTimeZoneInformation(&zone) == TIME_ZONE_ID_INVALID) return 0;
  FILETIME ft = fromSeconds(utcSeconds);
  SYSTEMTIME utc, local;
  if (!::FileTimeToSystemTime(&ft, &utc)) return 0;
  // The zone's rules for the year of the instant decide daylight saving.
  if (!::SystemTimeToTzSpecificLocalTime(&zone, &utc, &local)) return 0;
  FILETIME localFt;
  if (!::SystemTimeToFileTime(&local, &localFt)) return 0;
  return toSeconds(localFt) - utcSeconds;
}

long long cNativeTimeImpl::localOffsetAtLocal(long long localSeconds) {
  localSeconds = clampSeconds(localSeconds);
  TIME_ZONE_INFORMATION zone;
  if (::GetTimeZoneInformation(&zone) == TIME_ZONE_ID_INVALID) return 0;
  FILETIME ft = fromSeconds(localSeconds);
  SYSTEMTIME local, utc;
  if (!::FileTimeToSystemTime(&ft, &local)) return 0;
  if (!::TzSpecificLocalTimeToSystemTime(&zone, &local, &utc)) return 0;
  FILETIME utcFt;
  if (!::SystemTimeToFileTime(&utc, &utcFt)) return 0;
  return localSeconds - toSeconds(utcFt);
}

}  // namespace qpi
