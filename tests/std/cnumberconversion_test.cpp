#include "qelcore/std/cnumberconversion.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"
#include "support/corpus.h"

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

// fmod(w, 10) as the rule uses it. For w >= 2^63 (the integer m * 2^e) the
// remainder is (m mod 10) * (2^e mod 10) mod 10: the same value that fmod
// finds by long division, which costs about a microsecond a call near 1e300
// and would make the corpus below take minutes. RemainderOfLargeValues
// checks the two against each other.
double remainderOfTen(double w) {
  if (!std::isfinite(w)) return std::nan("");
  if (w < 9223372036854775808.0) return std::fmod(w, 10);
  int e = 0;
  const unsigned long long m = static_cast<unsigned long long>(std::ldexp(std::frexp(w, &e), 53));
  e -= 53;
  unsigned int powerOfTwo = 1;
  for (int k = 0; k < (e - 1) % 4 + 1; ++k) powerOfTwo = powerOfTwo * 2 % 10;
  return static_cast<double>(m % 10 * powerOfTwo % 10);
}

// The double-to-text rule written out plainly, with the remainder and
// repeated division, to check the library's faster digit extraction against.
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
      for (double w = value; w >= 1; w /= 10) digits += f.digitChar(static_cast<int>(remainderOfTen(w)));
      out.append(digits.rbegin(), digits.rend());
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
      double r = remainderOfTen(w);
      if (std::isnan(r)) return "throws";
      out += f.digitChar(static_cast<int>(r));
      if (static_cast<int>(r) != 0) run = out.size();
    }
    if (f.isRemoveTrainlingZeros()) out.resize(run);
  }
  return out;
}

// The text-to-double rule written out plainly: one pass with the flags of
// the rule. Returns the index of the offending character, or -1.
long long referenceParse(const std::string& text, bool ignoreLeadingSpaces, double& result) {
  std::size_t i = 0;
  if (ignoreLeadingSpaces)
    while (i < text.size() && text[i] == ' ') ++i;
  bool digitSeen = false, exponentMode = false, exponentDigitSeen = false, fraction = false;
  bool negative = false, exponentNegative = false;
  double value = 0.0, scale = 1.0;
  unsigned long long exponent = 0;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (!digitSeen && (c == '-' || c == '+')) {
      if (c == '-') negative = !negative;
      continue;
    }
    if (digitSeen && !exponentDigitSeen) {
      if (c == '-' || c == '+') {
        if (c == '-') exponentNegative = !exponentNegative;
        continue;
      }
      if (c == 'E' || c == 'e') {
        exponentMode = true;
        exponent = 0;
        continue;
      }
      if (c == '.') {
        fraction = true;
        scale = 1.0;
        continue;
      }
    }
    if (c < '0' || c > '9') return static_cast<long long>(i);
    const int d = c - '0';
    digitSeen = true;
    if (exponentMode) {
      exponentDigitSeen = true;
      // Beyond this every value is already zero or infinite.
      if (exponent < 100000000) exponent = exponent * 10 + d;
    } else if (!fraction) {
      value = value * 10 + d;
    } else {
      scale *= 0.1;
      value += d * scale;
    }
  }
  if (negative) value = -value;
  double factor = exponentNegative ? 0.1 : 10.0;
  for (; exponent != 0; exponent >>= 1, factor *= factor)
    if (exponent & 1) value *= factor;
  result = value;
  return -1;
}

// The integer-to-text rule written out plainly.
std::string referenceInteger(long long value, bool isSigned, const cNumberConversionFormat& f) {
  const bool negative = isSigned && value < 0;
  unsigned long long m = static_cast<unsigned long long>(value);
  if (negative) m = 0 - m;
  std::string digits;
  do {
    digits += f.digitChar(static_cast<unsigned int>(m % f.base()));
    m /= f.base();
  } while (m);
  std::string out = negative ? "-" : "";
  if (f.fixedWidth() > digits.size() + out.size()) out.append(f.fixedWidth() - digits.size() - out.size(), f.leadingDigit());
  out.append(digits.rbegin(), digits.rend());
  return out;
}

double fromBits(unsigned long long bits) {
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

unsigned long long bitsOf(double d) {
  unsigned long long bits;
  std::memcpy(&bits, &d, sizeof bits);
  return bits;
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

TEST(NumberConversion, RemainderOfLargeValues) {
  // The shortcut of the reference (and of the library) against fmod itself,
  // for every exponent from 2^63 up.
  std::mt19937_64 rng(99);
  for (int e = 63; e <= 1023; ++e)
    for (int k = 0; k < 4; ++k) {
      const double w = std::ldexp(1.0 + static_cast<double>(rng() >> 12) * 0x1p-52, e);
      ASSERT_EQ(remainderOfTen(w), std::fmod(w, 10.0)) << w;
    }
}

// A million values (a twentieth under sanitizers: see support/corpus.h)
// through the default format and explicit ones, against the plain rule:
// random bit patterns of every magnitude, integers, powers of ten and their
// neighbours, and values halfway between two texts at the format's precision.
TEST(NumberConversion, DoubleToTextCorpus) {
  std::vector<cNumberConversionFormat> formats(8);
  formats[1].setPrecision(6);
  formats[1].setRemoveTrailingZeros(false);
  formats[2].setPrecision(0);
  formats[3].setPrecision(17);
  formats[4].setPrecision(25);
  formats[4].setRemoveTrailingZeros(false);
  formats[5].setPrecision(3);
  formats[5].addIntegerPart(false);
  formats[6].addFractionalPart(false);
  formats[7].setDigitSymbol(1, 'i');
  formats[7].setPrecision(9);

  std::mt19937_64 rng(20240611);
  const unsigned int count = qeltest::corpusCount(1000000);
  cNumberConversion::tByteArray text;
  text.setFitOnErase(false);
  char buffer[400];
  for (unsigned int i = 0; i < count; ++i) {
    // Half of the values through the default format.
    const cNumberConversionFormat& f = formats[(i & 1) ? 1 + (i >> 1) % 7 : 0];
    double v;
    switch (i % 10) {
      case 0:
      case 1:
      case 2:
      case 3:
        v = fromBits(rng());
        break;
      case 4:
      case 5:
        v = static_cast<double>(rng() >> (rng() % 64)) * ((rng() & 1) ? -1 : 1);
        break;
      case 6: {
        v = std::strtod(("1e" + std::to_string(static_cast<int>(rng() % 634) - 325)).c_str(), nullptr);
        for (int steps = static_cast<int>(rng() % 7) - 3; steps; steps += steps < 0 ? 1 : -1)
          v = std::nextafter(v, steps < 0 ? 0.0 : HUGE_VAL);
        break;
      }
      default: {
        // (n + 1/2) units of the last place, and the doubles next to it.
        const std::string n = std::to_string(rng() >> (rng() % 64));
        v = std::strtod((n + "5e-" + std::to_string(f.precision() + 1)).c_str(), nullptr);
        if (rng() & 1) v = std::nextafter(v, (rng() & 1) ? 0.0 : HUGE_VAL);
        if (rng() & 1) v = -v;
        break;
      }
    }
    const std::string expected = referenceDouble(v, f);
    text.truncate(0);
    std::string got;
    try {
      cNumberConversion::toStringFromDouble(v, text, f);
      got.assign(text.data(true), text.size());
    } catch (const cRuntimeException&) {
      got = "throws";
    }
    ASSERT_EQ(got, expected) << "value " << fromBits(bitsOf(v)) << " (bits " << std::hex << bitsOf(v) << std::dec
                             << ") format " << ((i & 1) ? 1 + (i >> 1) % 7 : 0);
    // The caller's buffer gets the same text.
    if (got != "throws" && got.size() < sizeof buffer) {
      ASSERT_EQ(cNumberConversion::toChars(v, buffer, sizeof buffer, f), got.size());
      ASSERT_EQ(std::string(buffer, got.size()), got);
    }
  }
}

// Texts as programs write numbers (%g, %f and %e at every precision, long
// digit runs) and random strings of number characters, against the plain
// rule: the same bits, or the same index of the offending character.
TEST(NumberConversion, TextToDoubleCorpus) {
  std::mt19937_64 rng(777);
  const unsigned int count = qeltest::corpusCount(400000);
  cNumberConversionFormat f, noBlanks;
  noBlanks.setIgnoreLeadingSpaces(false);
  const char alphabet[] = "0123456789.-+eE 9";
  char buf[128];
  for (unsigned int i = 0; i < count; ++i) {
    std::string text;
    const double v = (i % 3 == 0) ? fromBits(rng()) : std::ldexp(static_cast<double>(rng() >> 11), static_cast<int>(rng() % 120) - 80);
    const int precision = static_cast<int>(rng() % 21);
    switch (i % 8) {
      case 0:
        std::snprintf(buf, sizeof buf, "%.*g", precision, v);
        text = buf;
        break;
      case 1:
        std::snprintf(buf, sizeof buf, "%.*e", precision, v);
        text = buf;
        break;
      case 2:
        if (std::fabs(v) < 1e30) {
          std::snprintf(buf, sizeof buf, "%.*f", precision, v);
          text = buf;
        }
        break;
      case 3:
        // Digit runs beyond 2^53, with and without a fraction.
        for (int k = 0, n = 1 + static_cast<int>(rng() % 40); k < n; ++k) text += static_cast<char>('0' + rng() % 10);
        if (rng() & 1) text += "." + std::to_string(rng());
        break;
      case 4:
        text = std::string(rng() % 3, ' ') + ((rng() & 1) ? "-" : "") + std::to_string(rng() % 100000) + "e" +
               ((rng() & 1) ? "-" : "+") + std::to_string(rng() % 400);
        break;
      default:
        for (int k = 0, n = static_cast<int>(rng() % 14); k < n; ++k) text += alphabet[rng() % (sizeof alphabet - 1)];
        break;
    }
    const cNumberConversionFormat& format = (i % 16 == 5) ? noBlanks : f;
    double expected = 0;
    const long long expectedIndex = referenceParse(text, format.ignoreLeadingSpaces(), expected);
    double got = 0;
    const long long gotIndex = badIndex([&] {
      got = cNumberConversion::fromStringToDouble(text.c_str(), static_cast<unsigned int>(text.size()), format);
    });
    ASSERT_EQ(gotIndex, expectedIndex) << '"' << text << '"';
    if (expectedIndex < 0) {
      ASSERT_EQ(bitsOf(got), bitsOf(expected)) << '"' << text << '"';
    }
  }
}

// Every base, fixed widths, custom symbols and the extremes, against the
// plain rule; the caller's buffer gets the same text, or nothing when it is
// too short.
TEST(NumberConversion, IntegerToTextCorpus) {
  std::mt19937_64 rng(4242);
  const unsigned int count = qeltest::corpusCount(200000);
  for (unsigned int i = 0; i < count; ++i) {
    cNumberConversionFormat f(i % 4 == 0 ? 2 + static_cast<unsigned int>(rng() % 35) : 10);
    if (i % 5 == 0) f.setFixedWidth(static_cast<unsigned int>(rng() % 30));
    if (i % 7 == 0) f.setLeadingDigit('*');
    if (i % 11 == 0) f.setDigitSymbol(static_cast<unsigned int>(rng() % 10), '#');
    if (i % 13 == 0) f.setDigitCase(cNumberConversionFormat::UpperCase);
    const unsigned long long bits = rng() >> (rng() % 64);
    const bool isSigned = (i & 1) != 0;
    const long long value = (i % 97 == 0) ? std::numeric_limits<long long>::min() : static_cast<long long>(bits);
    const std::string expected = referenceInteger(value, isSigned, f);
    const std::string got = isSigned ? str(value, f) : cNumberConversion::toString(static_cast<unsigned long long>(value), f).c_str();
    ASSERT_EQ(got, expected);
    char buf[40];
    const unsigned int room = static_cast<unsigned int>(rng() % sizeof buf);
    std::memset(buf, '~', sizeof buf);
    const unsigned int n = isSigned ? cNumberConversion::toChars(value, buf, room, f)
                                    : cNumberConversion::toChars(static_cast<unsigned long long>(value), buf, room, f);
    ASSERT_EQ(n, expected.size());
    if (n <= room) {
      ASSERT_EQ(std::string(buf, n), expected);
    } else {
      ASSERT_EQ(buf[0], '~');
    }
  }
  // A Unicode string gets the same characters.
  cString u;
  cNumberConversion::toString(-1234567890123LL, u);
  EXPECT_TRUE(u == "-1234567890123");
}
