#include "qelcore/std/cnumberconversion.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using namespace qstd;
using qeltest::textOf;
using qucs::cString;

namespace {

std::string str(long long v, const cNumberConversionFormat& f = cNumberConversionFormat()) {
  return cNumberConversion::toString(v, f).c_str();
}

std::string dbl(double v, const cNumberConversionFormat& f = cNumberConversionFormat()) {
  return cNumberConversion::toStringFromDouble(v, f).c_str();
}

// Index reported by the invalid-decimal exception, or -1 when none is thrown.
template <typename F>
long long badIndex(F f) {
  try {
    f();
  } catch (const cRuntimeException& e) {
    cAsciiString text;
    e.liMessage()->untranslated(text);
    std::string s = text.c_str();
    std::size_t at = s.find("at index ");
    EXPECT_NE(at, std::string::npos) << s;
    return std::stoll(s.substr(at + 9));
  }
  return -1;
}

// The double-to-text rule written out plainly, with fmod and repeated
// division, to check the library's faster digit extraction against.
std::string referenceDouble(double value, const cNumberConversionFormat& f) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value > 0 ? "+inf" : "-inf";
  std::string out;
  if (value < 0) {
    if (f.isAddIntegerPart()) out += '-';
    value = -value;
  }
  value += 0.5 * (f.precision() <= 22 ? std::stod("1e-" + std::to_string(f.precision()))
                                      : std::pow(10.0, -static_cast<double>(f.precision())));
  if (f.isAddIntegerPart()) {
    if (value >= 1) {
      std::string digits;
      for (double w = value; w >= 1; w /= 10)
        digits.insert(digits.begin(), f.digitChar(static_cast<int>(std::fmod(w, 10))));
      out += digits;
    } else {
      out += f.digitChar(0);
    }
  }
  if (f.isAddFractionalPart() && f.precision()) {
    std::size_t run = out.size();
    if (f.isAddIntegerPart()) out += '.';
    double w = value;
    for (unsigned int i = 0; i < f.precision(); ++i) {
      w *= 10;
      double r = std::fmod(w, 10);
      if (std::isnan(r)) return "throws";
      out += f.digitChar(static_cast<int>(r));
      if (static_cast<int>(r) != 0) run = out.size();
    }
    if (f.isRemoveTrainlingZeros()) out.resize(run);
  }
  return out;
}

}  // namespace

TEST(NumberConversion, IntegerToText) {
  cNumberConversionFormat hex(16);
  EXPECT_EQ(str(255, hex), "ff");
  hex.setDigitCase(cNumberConversionFormat::UpperCase);
  EXPECT_EQ(str(255, hex), "FF");
  hex.setDigitCase(cNumberConversionFormat::LowerCase);
  hex.setFixedWidth(4);
  EXPECT_EQ(str(255, hex), "00ff");
  EXPECT_EQ(str(-255, hex), "-0ff");

  cNumberConversionFormat padded;
  padded.setFixedWidth(4);
  EXPECT_EQ(str(-5, padded), "-005");
  EXPECT_EQ(str(123456, padded), "123456");
  padded.setLeadingDigit('*');
  EXPECT_EQ(str(7, padded), "***7");

  EXPECT_EQ(str(0), "0");
  EXPECT_EQ(str(std::numeric_limits<long long>::min()), "-9223372036854775808");
  EXPECT_EQ(std::string(cNumberConversion::toString(18446744073709551615ULL).c_str()), "18446744073709551615");
  cNumberConversionFormat bin(2);
  EXPECT_EQ(str(-6, bin), "-110");

  // Custom symbols are used for writing and for reading.
  cNumberConversionFormat custom;
  custom.setDigitSymbol(1, 'i');
  EXPECT_EQ(str(101, custom), "i0i");
  EXPECT_EQ(cNumberConversion::fromString("I0i", custom), 101);

  // Appending forms keep what is there.
  cAsciiString a("n=");
  cNumberConversion::toString(42, a);
  EXPECT_STREQ(a.c_str(), "n=42");
  cString u("n=");
  cNumberConversion::toString(-42, u);
  EXPECT_TRUE(u == "n=-42");
  cNumberConversion::tByteArray bytes;
  cNumberConversion::toString(7u, bytes, hex);
  EXPECT_EQ(std::string(bytes.data(), bytes.size()), "0007");
}

TEST(NumberConversion, TextToInteger) {
  cNumberConversionFormat f;
  EXPECT_EQ(cNumberConversion::fromString("  -0x1F", f), -31);
  EXPECT_EQ(cNumberConversion::fromString("", f), 0);
  EXPECT_EQ(cNumberConversion::fromString("--5", f), 5);
  EXPECT_EQ(cNumberConversion::fromString("-9223372036854775808", f), std::numeric_limits<long long>::min());
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("12 ", f); }), 2);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("+5", f); }), 0);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("1-2", f); }), 1);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("0x", f); }), 1);  // too short for a prefix
  f.setIgnoreLeadingSpaces(false);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString(" 1", f); }), 0);

  // Base detection wins over the format's base; letters compare case-blind.
  cNumberConversionFormat hex(16);
  EXPECT_EQ(cNumberConversion::fromString("0b101", hex), 5);
  EXPECT_EQ(cNumberConversion::fromString("0d19", hex), 19);
  EXPECT_EQ(cNumberConversion::fromString("0hFf", f), 255);
  EXPECT_EQ(cNumberConversion::fromString("<base:8>17", f), 15);
  EXPECT_EQ(cNumberConversion::fromString("<base:36>z", f), 35);
  EXPECT_EQ(cNumberConversion::fromString("<base:1>000", f), 0);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("<base:37>1", f); }), 0);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("0X10", f); }), 1);  // prefixes are case-sensitive
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromString("19", cNumberConversionFormat(8)); }), 1);
  cNumberConversionFormat plain(16);
  plain.setBaseDetectionEnabled(false);
  EXPECT_EQ(cNumberConversion::fromString("0b1", plain), 0xb1);

  unsigned int base = 0, prefix = 0;
  EXPECT_TRUE(f.detectBase(cAsciiString("<base:16>ff"), base, prefix));
  EXPECT_EQ(base, 16u);
  EXPECT_EQ(prefix, 9u);
  EXPECT_FALSE(f.detectBase(cAsciiString("<base:0>1"), base, prefix));

  // Other text types: characters above 127 are invalid and shown as '?'.
  EXPECT_EQ(cNumberConversion::fromString(cString("  42")), 42);
  try {
    cNumberConversion::fromString(cString(L"4\u00e9"));
    FAIL();
  } catch (const cRuntimeException& e) {
    cAsciiString text;
    e.liMessage()->untranslated(text);
    EXPECT_STREQ(text.c_str(), "Invalid decimal number (\"4?\"). Character at index 1 not points to digit!");
  }
}

TEST(NumberConversion, TextOutsideTheRangeIsRefusedAtItsDigit) {
  // Index of the digit that passes the range, or -1 when the text is read.
  auto passes = [](auto parse) -> long long {
    try {
      parse();
    } catch (const cNumberConversionException& e) {
      return e.errornousIndex();
    }
    return -1;
  };
  cNumberConversionFormat f;
  const long long largest = std::numeric_limits<long long>::max();
  EXPECT_EQ(cNumberConversion::fromString("9223372036854775807", f), largest);
  EXPECT_EQ(cNumberConversion::fromString("-0009223372036854775808", f), std::numeric_limits<long long>::min());
  EXPECT_EQ(cNumberConversion::fromString("0x7fffffffffffffff", f), largest);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString("9223372036854775808", f); }), 18);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString("18446744073709551617", f); }), 19);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString("-9223372036854775809", f); }), 19);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString("0x8000000000000000", f); }), 17);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString(("0b" + std::string(64, '1')).c_str(), f); }), 65);
  EXPECT_EQ(passes([&] { cNumberConversion::fromString("<base:36>zzzzzzzzzzzzz", f); }), 21);  // the slow path
  EXPECT_EQ(passes([&] { cNumberConversion::fromString(cString("  99999999999999999999x")); }), 20);
  try {
    cNumberConversion::fromString("9223372036854775808", f);
  } catch (const cNumberConversionException& e) {
    EXPECT_EQ(textOf(e), "Number conversion error. \"9223372036854775808\" contains invalid characters at index 18!");
  }

  // Unsigned reading takes all 64 bits, and no negative value.
  EXPECT_EQ(cAsciiString("18446744073709551615").toUInt(), std::numeric_limits<unsigned long long>::max());
  EXPECT_EQ(cString("-0").toUInt(), 0u);
  EXPECT_EQ(passes([&] { cAsciiString("18446744073709551616").toUInt(); }), 19);
  EXPECT_EQ(passes([&] { cString("-1").toUInt(); }), 1);
}

TEST(NumberConversion, TextToDouble) {
  cNumberConversionFormat f;
  EXPECT_EQ(cNumberConversion::fromStringToDouble("1.5e2", f), 150.0);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("2.5e-1", f), 0.25);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("3-1", f), 31.0);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("1.2.3", f), 1.5);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("  -+-4", f), 4.0);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("", f), 0.0);
  EXPECT_EQ(cNumberConversion::fromStringToDouble("1E3", f), 1000.0);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromStringToDouble(".5", f); }), 0);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromStringToDouble("1e2.5", f); }), 3);
  EXPECT_EQ(badIndex([&] { cNumberConversion::fromStringToDouble("1x", f); }), 1);
  // Huge exponents stay bounded and give what the doubling gives.
  EXPECT_TRUE(std::isinf(cNumberConversion::fromStringToDouble("1e99999999999999999999", f)));
  EXPECT_EQ(cNumberConversion::fromStringToDouble("1e-99999999999999999999", f), 0.0);
  EXPECT_EQ(cNumberConversion::fromStringToDouble(cString("1e1")), 10.0);
}

TEST(NumberConversion, DoubleToText) {
  cNumberConversionFormat f;
  EXPECT_EQ(dbl(0.1, f), "0.1");
  EXPECT_EQ(dbl(-2.0, f), "-2");
  EXPECT_EQ(dbl(1.5, f), "1.5");
  EXPECT_EQ(dbl(10.0, f), "10");
  EXPECT_EQ(dbl(0.0, f), "0");
  EXPECT_EQ(dbl(std::numeric_limits<double>::infinity(), f), "+inf");
  EXPECT_EQ(dbl(-std::numeric_limits<double>::infinity(), f), "-inf");
  EXPECT_EQ(dbl(std::numeric_limits<double>::quiet_NaN(), f), "nan");

  cNumberConversionFormat g;
  g.setRemoveTrailingZeros(false);
  g.setPrecision(3);
  EXPECT_EQ(dbl(2.0, g), "2.000");
  g.addIntegerPart(false);
  EXPECT_EQ(dbl(-2.25, g), "250");
  g.addIntegerPart(true);
  g.addFractionalPart(false);
  EXPECT_EQ(dbl(2.9996, g), "3");
  g.setPrecision(0);
  g.addFractionalPart(true);
  EXPECT_EQ(dbl(2.5, g), "3");

  // The fraction digits come from the whole value times ten: a value whose
  // fraction digits overflow has no text.
  EXPECT_THROW(dbl(1e300, f), cRuntimeException);
}

TEST(NumberConversion, DoubleToTextMatchesThePlainRule) {
  std::mt19937_64 rng(12345);
  std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
  std::uniform_int_distribution<int> exponent(-30, 30);
  std::uniform_int_distribution<int> precision(0, 25);
  for (int i = 0; i < 20000; ++i) {
    double v = mantissa(rng) * std::pow(10.0, exponent(rng));
    cNumberConversionFormat f;
    f.setPrecision(static_cast<unsigned int>(precision(rng)));
    f.setRemoveTrailingZeros(i % 3 != 0);
    f.addIntegerPart(i % 7 != 0);
    std::string expected = referenceDouble(v, f);
    std::string got;
    try {
      got = dbl(v, f);
    } catch (const cRuntimeException&) {
      got = "throws";
    }
    ASSERT_EQ(got, expected) << "value " << v << " precision " << f.precision();
  }
}
