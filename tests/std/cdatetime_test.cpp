#include "qelcore/std/cdatetime.h"

#include <cstdlib>
#include <ctime>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/cdate.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctextparseexception.h"

using qstd::cDate;
using qstd::cDateTime;
using qstd::cTime;

namespace {

std::string str(const qstd::cAsciiString& s) { return s.c_str(); }

// 2024-02-29 12:34:56.789012 UTC.
const unsigned long long LeapNoon = 1709210096789012ull;

}  // namespace

TEST(DateTime, FieldsOfATimeInUTC) {
  cDateTime t{cTime(LeapNoon)};
  EXPECT_EQ(t.year(), 2024);
  EXPECT_EQ(t.month(), 2u);
  EXPECT_EQ(t.day(), 29u);
  EXPECT_EQ(t.hour(), 12u);
  EXPECT_EQ(t.minute(), 34u);
  EXPECT_EQ(t.second(), 56u);
  EXPECT_EQ(t.msec(), 789u);
  EXPECT_EQ(t.usec(), 789012u);
  EXPECT_EQ(t.utcOffset(), 0);
  EXPECT_EQ(t.toTime().get(), LeapNoon);
  EXPECT_EQ(str(t.timeString()), "12:34:56");
  EXPECT_EQ(str(t.toString()), "2024-02-29 12:34:56");
  EXPECT_EQ(str(t.toIsoString()), "2024-02-29T12:34:56Z");
  EXPECT_EQ(str(t.toIsoString(true)), "2024-02-29T12:34:56.789012Z");
  EXPECT_EQ(cDate(cTime(LeapNoon)), cDate(2024, 2, 29));
  EXPECT_EQ(str(cDateTime().toIsoString()), "1970-01-01T00:00:00Z");
}

TEST(DateTime, FieldsAreValidatedAndTimesBefore1970HaveNoCTime) {
  EXPECT_THROW(cDateTime(2024, 1, 1, 24, 0, 0), qstd::cOutOfRangeException);
  EXPECT_THROW(cDateTime(2024, 1, 1, 0, 60, 0), qstd::cOutOfRangeException);
  EXPECT_THROW(cDateTime(2024, 1, 1, 0, 0, 60), qstd::cOutOfRangeException);
  EXPECT_THROW(cDateTime(2024, 1, 1, 0, 0, 0, 1000000), qstd::cOutOfRangeException);
  EXPECT_THROW(cDateTime(2024, 2, 30, 0, 0, 0), qstd::cOutOfRangeException);

  cDateTime before(1969, 12, 31, 23, 59, 59, 500000);
  EXPECT_EQ(before.toMicroseconds(), -500000);
  EXPECT_THROW(before.toTime(), qstd::cOutOfRangeException);
  EXPECT_EQ(before.addMicroseconds(500000).toTime().get(), 0ull);
  // Beyond the year 9999.
  EXPECT_THROW(cDateTime{cTime(~0ull)}, qstd::cOutOfRangeException);
  EXPECT_THROW(cDateTime{cTime(253402300800000000ull)}, qstd::cOutOfRangeException);
}

TEST(DateTime, ArithmeticAndComparisonWorkOnTheInstant) {
  cDateTime a(2023, 12, 31, 23, 59, 59, 999999);
  cDateTime b = a.addMicroseconds(1);
  EXPECT_EQ(str(b.toIsoString(true)), "2024-01-01T00:00:00.000000Z");
  EXPECT_TRUE(a < b);
  EXPECT_EQ(a.microsecondsTo(b), 1);
  EXPECT_EQ(str(a.addDays(60).toString()), "2024-02-29 23:59:59");
  // The same instant seen in both zones is one instant.
  EXPECT_EQ(a.toLocal(), a);
  EXPECT_EQ(a.toLocal().toUTC().toIsoString(true), a.toIsoString(true));
}

TEST(DateTime, Parsing) {
  EXPECT_EQ(cDateTime::fromString("2024-02-29T12:34:56Z").toTime().get(), LeapNoon / 1000000 * 1000000);
  EXPECT_EQ(cDateTime::fromString("2024-02-29 12:34:56.789012").toTime().get(), LeapNoon);
  EXPECT_EQ(cDateTime::fromString("2024-02-29T12:34:56.7").usec(), 700000u);
  // An offset is converted to UTC.
  cDateTime shifted = cDateTime::fromString("2024-03-01T01:04:56+12:30");
  EXPECT_EQ(str(shifted.toIsoString()), "2024-02-29T12:34:56Z");
  EXPECT_EQ(str(cDateTime::fromString("2024-02-29T00:00:00-01:00").toIsoString()), "2024-02-29T01:00:00Z");
  // Text written by toIsoString reads back as the same instant.
  cDateTime local = cDateTime(cTime(LeapNoon), cDate::Local);
  EXPECT_EQ(cDateTime::fromString(local.toIsoString(true)), local);

  for (const char* bad :
       {"2024-02-29", "2024-02-29T12:34", "2024-02-29T24:00:00", "2024-02-30T00:00:00", "2024-02-29T12:34:56.",
        "2024-02-29T12:34:56.1234567", "2024-02-29T12:34:56+1:00", "2024-02-29T12:34:56Zx", "2024-02-29X12:34:56"})
    EXPECT_THROW(cDateTime::fromString(bad), qstd::cTextParseException) << bad;
}

TEST(DateTime, LocalTimeFollowsTheZoneRules) {
  // The local fields and the offset always describe the same instant.
  for (unsigned long long t : {0ull, LeapNoon, 1719835200000000ull, 1735689599000000ull}) {
    cDateTime local(cTime(t), cDate::Local);
    EXPECT_EQ(local.zone(), cDate::Local);
    EXPECT_EQ(local.toTime().get(), t);
    cDateTime again(local.date(), local.hour(), local.minute(), local.second(), local.usec(), cDate::Local);
    EXPECT_EQ(again.toTime().get(), t);
    EXPECT_EQ(again.utcOffset(), local.utcOffset());
  }
  cDateTime now = cDateTime::now();
  EXPECT_EQ(now.zone(), cDate::Local);
  EXPECT_LE(now.toTime().diff().toSec(), 5ull);
}

#ifndef _WIN32
// POSIX systems take the zone from TZ; Windows from its own settings.
TEST(DateTime, LocalTimeInAZoneWithDaylightSaving) {
  const char* old = std::getenv("TZ");
  std::string saved = old ? old : "";
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();

  cDateTime winter(cTime(LeapNoon), cDate::Local);
  EXPECT_EQ(winter.utcOffset(), 3600);
  EXPECT_EQ(str(winter.toIsoString()), "2024-02-29T13:34:56+01:00");
  cDateTime summer = cDateTime(2024, 7, 1, 12, 0, 0, 0, cDate::Local);
  EXPECT_EQ(summer.utcOffset(), 7200);
  EXPECT_EQ(str(summer.toUTC().timeString()), "10:00:00");
  // 02:30 on 2024-03-31 does not exist there; it is taken as 03:30 summer time.
  cDateTime gap(2024, 3, 31, 2, 30, 0, 0, cDate::Local);
  EXPECT_EQ(str(gap.timeString()), "03:30:00");
  EXPECT_EQ(gap.utcOffset(), 7200);
  // Adding days keeps the wall-clock time across the change.
  cDateTime before(2024, 3, 30, 12, 0, 0, 0, cDate::Local);
  EXPECT_EQ(str(before.addDays(1).toIsoString()), "2024-03-31T12:00:00+02:00");
  EXPECT_EQ(before.microsecondsTo(before.addDays(1)), 23ll * 3600 * 1000000);
  EXPECT_EQ(cDate(cTime(1711839600000000ull), cDate::Local), cDate(2024, 3, 31));  // 23:00 UTC on the 30th

  if (old)
    setenv("TZ", saved.c_str(), 1);
  else
    unsetenv("TZ");
  tzset();
}
#endif
