// Standard types in archives: std::string as the ASCII string element, and
// every standard integer type by its width.
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/sa/stdstrings.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ctypemissmatchexception.h"

#include "archivetestutil.h"

using namespace satest;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

TEST(StdStringArchive, StoredAsTheAsciiStringElement) {
  const std::string text("door\0bell", 9);
  cSerializeBinary fromStd, fromAscii;
  text >> fromStd;
  std::string_view(text).substr(0, 4) >> fromStd;
  std::string() >> fromStd;
  qstd::cAsciiString(text.data(), 9) >> fromAscii;
  qstd::cAsciiString("door") >> fromAscii;
  qstd::cAsciiString() >> fromAscii;
  EXPECT_EQ(bytesOf(fromStd), bytesOf(fromAscii));

  // Through the abstract interfaces, of the binary archive or another.
  cSerializeBinary viaBase;
  qsa::cAbstractSerializer& base = viaBase;
  text >> base;
  qsa::cSerializeToTypeString types;
  text >> static_cast<qsa::cAbstractSerializer&>(types);
  EXPECT_STREQ(types.typeString().c_str(), "cAsciiString");

  cDeserializeBinary d(viaBase.ownData());
  qsa::cAbstractDeserializer& reader = d;
  std::string back;
  back << reader;
  EXPECT_EQ(back, text);
  cDeserializeBinary e(fromStd.ownData());
  std::string a, b("kept"), c("x");
  a << e;
  b << e;
  c << e;
  EXPECT_EQ(a, text);
  EXPECT_EQ(b, "door");
  EXPECT_EQ(c, "");
}

TEST(StdStringArchive, AFailedLoadChangesNothing) {
  cSerializeBinary s;
  7 >> s;
  cDeserializeBinary d(s.ownData());
  std::string kept("kept");
  EXPECT_THROW(kept << d, qstd::cTypeMissmatchException);
  EXPECT_EQ(kept, "kept");
  EXPECT_EQ(d.currentPos(), 0u);
  int seven = 0;
  seven << d;
  EXPECT_EQ(seven, 7);
}

TEST(StdIntegerArchive, EveryIntegerTypeGoesByItsWidth) {
  cSerializeBinary byWidth, fixed;
  const long l = -5;
  const unsigned long ul = std::numeric_limits<unsigned long>::max();
  const std::int64_t i64 = std::numeric_limits<std::int64_t>::min();
  const std::uint64_t u64 = 0x0102030405060708ull;
  const std::size_t size = 1234567;
  const signed char sc = -7;
  l >> byWidth;
  ul >> byWidth;
  i64 >> byWidth;
  u64 >> byWidth;
  size >> byWidth;
  sc >> byWidth;
  if (sizeof(long) == 8) {
    static_cast<long long>(l) >> fixed;
    static_cast<unsigned long long>(ul) >> fixed;
  } else {
    static_cast<int>(l) >> fixed;
    static_cast<unsigned int>(ul) >> fixed;
  }
  static_cast<long long>(i64) >> fixed;
  static_cast<unsigned long long>(u64) >> fixed;
  if (sizeof(std::size_t) == 8)
    static_cast<unsigned long long>(size) >> fixed;
  else
    static_cast<unsigned int>(size) >> fixed;
  static_cast<char>(sc) >> fixed;
  EXPECT_EQ(bytesOf(byWidth), bytesOf(fixed));

  // Loaded back, through the binary reader and through its interface.
  cDeserializeBinary d(byWidth.ownData());
  qsa::cAbstractDeserializer& base = d;
  long l2 = 0;
  unsigned long ul2 = 0;
  std::int64_t i642 = 0;
  std::uint64_t u642 = 0;
  std::size_t size2 = 0;
  signed char sc2 = 0;
  l2 << d;
  ul2 << base;
  i642 << d;
  u642 << base;
  size2 << d;
  sc2 << base;
  EXPECT_EQ(l2, l);
  EXPECT_EQ(ul2, ul);
  EXPECT_EQ(i642, i64);
  EXPECT_EQ(u642, u64);
  EXPECT_EQ(size2, size);
  EXPECT_EQ(sc2, sc);
  // A width is a type: a 64-bit long does not load as an int.
  cSerializeBinary s;
  l >> s;
  cDeserializeBinary e(s.ownData());
  int narrow = 0;
  if (sizeof(long) == 8) {
    EXPECT_THROW(narrow << e, qstd::cTypeMissmatchException);
  }
}
