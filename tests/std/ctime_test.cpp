#include "qelcore/std/ctime.h"

#include <ctime>

#include <gtest/gtest.h>

using qstd::cTime;

TEST(Time, ConstructorsScaleTheirFields) {
  EXPECT_EQ(cTime(1u, 500u).get(), 1000500ull);
  EXPECT_EQ(cTime(1u, 2u, 3u, 4u).get(), 3723000004ull);
  // Seconds beyond 32 bits after scaling must not wrap.
  EXPECT_EQ(cTime(4294967295u, 0u).get(), 4294967295000000ull);
  EXPECT_EQ(cTime(0u, 71582788u, 0u, 0u).get(), 71582788ull * 60 * 1000000);
  // hours * 3600 is the one product formed in 32 bits.
  EXPECT_EQ(cTime(1193047u, 0u, 0u, 0u).get(), (1193047ull * 3600 % 4294967296ull) * 1000000);
}

TEST(Time, ConversionsAndClockFieldsTruncate) {
  cTime t(1u, 500u);
  EXPECT_EQ(t.toMSec(), 1000ull);
  EXPECT_EQ(t.msec(), 0u);
  EXPECT_EQ(t.usec(), 500u);
  EXPECT_EQ(t.toNSec(), 1000500000ull);

  cTime day(25u, 0u, 0u, 0u);
  EXPECT_EQ(day.hour(), 1u);
  EXPECT_EQ(day.toHour(), 25ull);

  cTime u(13u, 59u, 58u, 999999u);
  EXPECT_EQ(u.hour(), 13u);
  EXPECT_EQ(u.minutes(), 59u);
  EXPECT_EQ(u.sec(), 58u);
  EXPECT_EQ(u.msec(), 999u);
  EXPECT_EQ(u.toMin(), 13ull * 60 + 59);
  EXPECT_EQ(u.toSec(), (13ull * 60 + 59) * 60 + 58);
}

TEST(Time, TimeArithmeticSaturatesAndIsAbsoluteIntegerArithmeticWraps) {
  EXPECT_EQ((cTime(5ull) - cTime(8ull)).get(), 3ull);
  EXPECT_EQ((cTime(8ull) - cTime(5ull)).get(), 3ull);
  const cTime largest(~0ull);
  EXPECT_EQ((largest + cTime(1ull)).get(), ~0ull);
  EXPECT_EQ((largest + 1ll).get(), 0ull);
  EXPECT_EQ((cTime(5ull) - 8ll).get(), ~0ull - 2);
  EXPECT_EQ((cTime(5ull) + -2ll).get(), 3ull);
  EXPECT_EQ((cTime(2ull) + cTime(3ull)).get(), 5ull);

  cTime t(10ull);
  t += cTime(~0ull);
  EXPECT_EQ(t.get(), ~0ull);
  t -= cTime(1ull);
  EXPECT_EQ(t.get(), ~0ull - 1);
}

TEST(Time, ClockIsTheUTCEpochInMicroseconds) {
  long long before = static_cast<long long>(std::time(nullptr));
  cTime now;
  long long after = static_cast<long long>(std::time(nullptr));
  // A second of slack: std::time() and the library may read clocks of
  // different grain (a coarse one lags the precise one by a tick).
  EXPECT_GE(static_cast<long long>(now.toSec()), before - 1);
  EXPECT_LE(static_cast<long long>(now.toSec()), after + 1);
  cTime later;
  EXPECT_FALSE(later < now);
  // A time well in the past is that far behind; one in the future counts the
  // distance too rather than wrapping.
  cTime past = now - 60000000ll;
  EXPECT_GE(past.diff().get(), 60000000ull);
  EXPECT_LT(past.diff().get(), 3600000000ull);
  cTime future = now + 3600000000ll;
  EXPECT_LE(future.diff().get(), 3600000000ull);
  EXPECT_GT(future.diff().get(), 3000000000ull);
}
