#include "qelcore/std/cbuildinfo.h"

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"

using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

TEST(cBuildInfo, BuildInfoRoundTripsWithAFullThirtyTwoBitCount) {
  qstd::cBuildInfo defaults;
  qstd::cBuildInfo given("cmake", "g++", "12", "host", "2026-11-22", 0xFFFFFFFFu);
  cSerializeBinary s;
  defaults >> s;
  given >> s;
  cDeserializeBinary d(s.ownData());
  qstd::cBuildInfo a("x", "x", "x", "x", "x", 1), b;
  a << d;
  b << d;
  EXPECT_STREQ(a.compiler().c_str(), "unknown");
  EXPECT_STREQ(a.buildDate().c_str(), "unknown");
  EXPECT_EQ(a.buildCount(), 0u);
  EXPECT_STREQ(b.buildSystem().c_str(), "cmake");
  EXPECT_STREQ(b.buildHost().c_str(), "host");
  EXPECT_EQ(b.buildCount(), 0xFFFFFFFFull);

  qsa::cSerializeToTypeString types;
  given >> types;
  EXPECT_STREQ(types.typeString().c_str(),
               "cAsciiString, cAsciiString, cAsciiString, cAsciiString, cAsciiString, piUInt64");
}
