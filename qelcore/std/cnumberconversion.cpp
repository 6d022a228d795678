#include "qelcore/std/cnumberconversion.h"

#include <cmath>
#include <cstring>
#include <memory>
#include <type_traits>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

namespace {

// --- output --------------------------------------------------------------

template <typename Arr>
void appendChars(Arr& out, const char* s, unsigned int n) {
  if (n == 0) return;
  unsigned int at = out.appendElements(n);
  typename Arr::ElementType* p = out.data() + at;
  for (unsigned int i = 0; i < n; ++i) p[i] = static_cast<typename Arr::ElementType>(static_cast<unsigned char>(s[i]));
}

void appendChars(cAsciiString& out, const char* s, unsigned int n) {
  if (n) out.append(s, n);
}

void appendChars(cNumberConversion::tByteArray& out, const char* s, unsigned int n) {
  if (n) out.append(s, n);
}

template <typename Arr>
void appendFill(Arr& out, char c, unsigned int n) {
  if (n) out.appendElements(n, static_cast<typename Arr::ElementType>(static_cast<unsigned char>(c)));
}

// --- integer to text -------------------------------------------------------

// Writes the digits of `value` backwards, ending just before `end`; returns
// the number of digits (at least one).
unsigned int digitsBackward(unsigned long long value, unsigned int base, const char* symbols, char* end) {
  char* p = end;
  if (base == 10) {
    do {
      *--p = symbols[value % 10];
      value /= 10;
    } while (value);
  } else {
    do {
      *--p = symbols[value % base];
      value /= base;
    } while (value);
  }
  return static_cast<unsigned int>(end - p);
}

template <typename Out>
void appendInteger(unsigned long long magnitude, bool negative, Out& out, const cNumberConversionFormat& format) {
  char buf[72];
  char* end = buf + sizeof buf;
  unsigned int n = digitsBackward(magnitude, format.base(), format.getDigitSymbolSet(), end);
  unsigned int length = n + (negative ? 1 : 0);
  if (negative) appendChars(out, "-", 1);
  // Padding goes between the sign and the digits: -5 in width 4 is -005.
  if (format.fixedWidth() > length) appendFill(out, format.leadingDigit(), format.fixedWidth() - length);
  appendChars(out, end - n, n);
}

template <typename Out>
void appendSignedImpl(long long value, Out& out, const cNumberConversionFormat& format) {
  bool negative = value < 0;
  unsigned long long magnitude = static_cast<unsigned long long>(value);
  if (negative) magnitude = 0ULL - magnitude;
  appendInteger(magnitude, negative, out, format);
}

// --- double to text ---------------------------------------------------------

double negativePowerOfTen(unsigned int precision) {
  static const double kTable[] = {1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
                                  1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};
  if (precision < sizeof kTable / sizeof kTable[0]) return kTable[precision];
  return std::pow(10.0, -static_cast<double>(precision));
}

// The digit fmod(w, 10) stands for (w >= 0). fmod is exact, so below 2^63
// its integer part equals the last decimal digit of the truncated value.
inline unsigned int decimalDigit(double w, bool integerPart) {
  if (w < 9.2e18) return static_cast<unsigned int>(static_cast<unsigned long long>(w) % 10);
  double r = std::fmod(w, 10.0);
  if (std::isnan(r)) cSTDExceptions::throwInvalidFractionalNumber(integerPart);
  return static_cast<unsigned int>(r);
}

template <typename Out>
void appendDouble(double value, Out& out, const cNumberConversionFormat& format) {
  if (std::isnan(value)) {
    appendChars(out, "nan", 3);
    return;
  }
  if (std::isinf(value)) {
    appendChars(out, value > 0 ? "+inf" : "-inf", 4);
    return;
  }
  const char* symbols = format.getDigitSymbolSet();
  const unsigned int precision = format.precision();
  const bool withInteger = format.isAddIntegerPart();
  const bool withFraction = format.isAddFractionalPart() && precision != 0;

  // Sign, at most 309 integer digits, the point and the fraction.
  std::size_t capacity = 1 + 310 + 1 + (withFraction ? static_cast<std::size_t>(precision) : 0);
  char stackBuf[512];
  std::unique_ptr<char[]> heapBuf;
  char* buf = stackBuf;
  if (capacity > sizeof stackBuf) {
    heapBuf.reset(new char[capacity]);
    buf = heapBuf.get();
  }
  std::size_t len = 0;

  if (value < 0) {
    if (withInteger) buf[len++] = '-';
    value = -value;
  }
  value += 0.5 * negativePowerOfTen(precision);

  if (withInteger) {
    if (value >= 1) {
      char digits[320];
      unsigned int n = 0;
      for (double w = value; w >= 1 && n < sizeof digits; w /= 10) digits[n++] = symbols[decimalDigit(w, true)];
      while (n) buf[len++] = digits[--n];
    } else {
      buf[len++] = symbols[0];
    }
  }

  if (withFraction) {
    if (withInteger) buf[len++] = '.';
    // Start of the final run of zeros; the point belongs to it while no
    // non-zero digit follows.
    std::size_t zeroRun = withInteger ? len - 1 : len;
    double w = value;
    for (unsigned int i = 0; i < precision; ++i) {
      w *= 10;
      unsigned int d = decimalDigit(w, false);
      buf[len++] = symbols[d];
      if (d != 0) zeroRun = len;
    }
    if (format.isRemoveTrainlingZeros()) len = zeroRun;
  }
  appendChars(out, buf, static_cast<unsigned int>(len));
}

// --- text to numbers ----------------------------------------------------------

template <typename C>
inline unsigned int code(C c) {
  return static_cast<unsigned int>(static_cast<typename std::make_unsigned<C>::type>(c));
}

// Index of `c` among the first `base` symbols, compared upper-cased, or -1.
int digitIn(const cNumberConversionFormat& format, unsigned int c, unsigned int base) {
  unsigned int upper = (c >= 'a' && c <= 'z') ? c - 32 : c;
  if (format.hasStandardSymbols()) {
    unsigned int v = 36;
    if (upper >= '0' && upper <= '9')
      v = upper - '0';
    else if (upper >= 'A' && upper <= 'Z')
      v = upper - 'A' + 10;
    return v < base ? static_cast<int>(v) : -1;
  }
  const char* symbols = format.getDigitSymbolSet();
  for (unsigned int i = 0; i < base; ++i) {
    unsigned int s = static_cast<unsigned char>(symbols[i]);
    if (s >= 'a' && s <= 'z') s -= 32;
    if (s == upper) return static_cast<int>(i);
  }
  return -1;
}

const unsigned long long LargestSigned = 0x7FFFFFFFFFFFFFFFull;

// How an integer text was read.
enum eIntegerParse { ParsedInteger, InvalidCharacter, OutOfRange };

// Appends digit `d` to `value`; false when the result would pass `limit`.
inline bool addDigit(unsigned long long& value, unsigned int base, unsigned int d, unsigned long long limit) {
  unsigned long long next;
  if (__builtin_mul_overflow(value, static_cast<unsigned long long>(base), &next) ||
      __builtin_add_overflow(next, static_cast<unsigned long long>(d), &next) || next > limit)
    return false;
  value = next;
  return true;
}

// Reads an integer as its magnitude and sign. The magnitude may reach
// `positiveLimit`, or `negativeLimit` with a minus sign; a digit that would
// pass it is reported (index) as out of range, a character that is no digit
// as invalid.
template <typename C>
eIntegerParse parseInteger(const C* text, unsigned int length, const cNumberConversionFormat& format,
                           unsigned long long positiveLimit, unsigned long long negativeLimit,
                           unsigned long long& magnitude, bool& negative, unsigned int& index) {
  magnitude = 0;
  negative = false;
  if (length == 0) return ParsedInteger;
  unsigned int i = 0;
  if (format.ignoreLeadingSpaces())
    while (i < length && code(text[i]) == ' ') ++i;
  if (i < length && code(text[i]) == '-') {
    negative = true;
    ++i;
  }
  unsigned int base = format.base();
  if (format.baseDetectionEnabled()) {
    unsigned int detected = 0, prefix = 0;
    if (format.detectBase(text + i, length - i, detected, prefix)) {
      base = detected;
      i += prefix;
    }
  }
  // The sign can still flip before the first digit, and so can the limit.
  unsigned long long limit = negative ? negativeLimit : positiveLimit;
  unsigned long long value = 0;
  bool digitSeen = false;
  if (format.hasStandardSymbols() && base <= 10) {
    // Below this, one more digit of a base up to 10 stays within 63 bits,
    // so the common short number needs no overflow check.
    const unsigned long long unchecked = 0x0CCCCCCCCCCCCCCBull;
    unsigned long long safeBelow = limit >= LargestSigned ? unchecked : 0;
    for (; i < length; ++i) {
      unsigned int c = code(text[i]);
      unsigned int d = c - '0';
      if (d < base) {
        if (value < safeBelow) {
          value = value * base + d;
        } else if (!addDigit(value, base, d, limit)) {
          index = i;
          return OutOfRange;
        }
        digitSeen = true;
      } else if (c == '-' && !digitSeen) {
        negative = !negative;
        limit = negative ? negativeLimit : positiveLimit;
        safeBelow = limit >= LargestSigned ? unchecked : 0;
      } else {
        index = i;
        return InvalidCharacter;
      }
    }
  } else {
    for (; i < length; ++i) {
      unsigned int c = code(text[i]);
      if (c == '-' && !digitSeen) {
        negative = !negative;
        limit = negative ? negativeLimit : positiveLimit;
        continue;
      }
      int d = digitIn(format, c, base);
      if (d < 0) {
        index = i;
        return InvalidCharacter;
      }
      if (!addDigit(value, base, static_cast<unsigned int>(d), limit)) {
        index = i;
        return OutOfRange;
      }
      digitSeen = true;
    }
  }
  magnitude = value;
  return ParsedInteger;
}

// The text of a failed parse as a string.
template <typename C>
qucs::cString textOf(const C* text, unsigned int length) {
  qucs::cString s;
  for (unsigned int i = 0; i < length; ++i) s.append(code(text[i]));
  return s;
}

[[noreturn]] void throwInvalid(const char* text, unsigned int length, unsigned int index) {
  cSTDExceptions::throwInvalidDecimal(text, length, index);
}
[[noreturn]] void throwInvalid(const unsigned int* text, unsigned int length, unsigned int index) {
  cSTDExceptions::throwInvalidDecimal(textOf(text, length), index);
}

// Text to a signed or an unsigned 64-bit value, or the exception for the
// first character that does not fit.
template <typename C>
unsigned long long parseOrThrow(const C* text, unsigned int length, const cNumberConversionFormat& format,
                                bool toUnsigned) {
  unsigned long long magnitude;
  bool negative;
  unsigned int index = 0;
  switch (parseInteger(text, length, format, toUnsigned ? ~0ull : LargestSigned, toUnsigned ? 0ull : LargestSigned + 1,
                       magnitude, negative, index)) {
    case InvalidCharacter:
      throwInvalid(text, length, index);
    case OutOfRange:
      cSTDExceptions::throwNumberConversion(textOf(text, length), index);
    default:
      break;
  }
  return negative ? 0ull - magnitude : magnitude;
}

template <typename C>
bool parseDouble(const C* text, unsigned int length, const cNumberConversionFormat& format, double& result,
                 unsigned int& badIndex) {
  unsigned int i = 0;
  if (format.ignoreLeadingSpaces())
    while (i < length && code(text[i]) == ' ') ++i;
  bool digitSeen = false, exponentMode = false, exponentDigitSeen = false, fraction = false;
  bool negative = false, exponentNegative = false;
  double value = 0.0, scale = 1.0;
  // Exponents beyond this give the same infinities and zeros; the cap keeps
  // the accumulation free of overflow.
  const unsigned int kExponentCap = 100000000;
  unsigned int exponent = 0;
  for (; i < length; ++i) {
    unsigned int c = code(text[i]);
    if (!digitSeen) {
      if (c == '-') {
        negative = !negative;
        continue;
      }
      if (c == '+') continue;
    } else if (!exponentDigitSeen) {
      // A sign after the mantissa belongs to the exponent, "E" or not.
      if (c == '-') {
        exponentNegative = !exponentNegative;
        continue;
      }
      if (c == '+') continue;
      if (c == 'E' || c == 'e') {
        exponentMode = true;
        exponent = 0;
        continue;
      }
      if (c == '.') {
        // Every point starts a new fraction: "1.2.3" is 1.5.
        fraction = true;
        scale = 1.0;
        continue;
      }
    }
    unsigned int d = c - '0';
    if (d > 9) {
      badIndex = i;
      return false;
    }
    digitSeen = true;
    if (exponentMode) {
      exponentDigitSeen = true;
      if (exponent < kExponentCap) exponent = exponent * 10 + d;
    } else if (!fraction) {
      value = value * 10 + d;
    } else {
      scale *= 0.1;
      value += d * scale;
    }
  }
  if (negative) value = -value;
  double factor = exponentNegative ? 0.1 : 10.0;
  while (exponent != 0) {
    if (exponent & 1) value *= factor;
    exponent >>= 1;
    factor *= factor;
  }
  result = value;
  return true;
}

const char* bytesOf(const cNumberConversion::tConstByteArrayRef& text) { return text.size() ? text.data() : ""; }

}  // namespace

// --- integer to text ---------------------------------------------------------

void cNumberConversion::appendSigned(long long value, cAsciiString& out, const cNumberConversionFormat& format) {
  appendSignedImpl(value, out, format);
}
void cNumberConversion::appendSigned(long long value, qucs::cString& out, const cNumberConversionFormat& format) {
  appendSignedImpl(value, out, format);
}
void cNumberConversion::appendSigned(long long value, tByteArray& out, const cNumberConversionFormat& format) {
  appendSignedImpl(value, out, format);
}
void cNumberConversion::appendUnsigned(unsigned long long value, cAsciiString& out,
                                       const cNumberConversionFormat& format) {
  appendInteger(value, false, out, format);
}
void cNumberConversion::appendUnsigned(unsigned long long value, qucs::cString& out,
                                       const cNumberConversionFormat& format) {
  appendInteger(value, false, out, format);
}
void cNumberConversion::appendUnsigned(unsigned long long value, tByteArray& out,
                                       const cNumberConversionFormat& format) {
  appendInteger(value, false, out, format);
}

// --- double to text -------------------------------------------------------------

cAsciiString cNumberConversion::toStringFromDouble(double value, const cNumberConversionFormat& format) {
  cAsciiString out;
  appendDouble(value, out, format);
  return out;
}
void cNumberConversion::toStringFromDouble(double value, cAsciiString& out, const cNumberConversionFormat& format) {
  appendDouble(value, out, format);
}
void cNumberConversion::toStringFromDouble(double value, qucs::cString& out, const cNumberConversionFormat& format) {
  appendDouble(value, out, format);
}
void cNumberConversion::toStringFromDouble(double value, tByteArray& out, const cNumberConversionFormat& format) {
  appendDouble(value, out, format);
}

// --- text to integer --------------------------------------------------------------

long long cNumberConversion::fromString(const char* text, unsigned int length, const cNumberConversionFormat& format) {
  if (!text) length = 0;
  return static_cast<long long>(parseOrThrow(text, length, format, false));
}
long long cNumberConversion::fromString(const char* text, const cNumberConversionFormat& format) {
  return fromString(text, text ? static_cast<unsigned int>(std::strlen(text)) : 0, format);
}
long long cNumberConversion::fromString(const cAsciiString& text, const cNumberConversionFormat& format) {
  return fromString(text.c_str(), text.size(), format);
}
long long cNumberConversion::fromString(const tByteArray& text, const cNumberConversionFormat& format) {
  return fromString(text.size() ? text.data() : "", text.size(), format);
}
long long cNumberConversion::fromString(const tConstByteArrayRef& text, const cNumberConversionFormat& format) {
  return fromString(bytesOf(text), text.size(), format);
}
long long cNumberConversion::fromString(const qucs::cString& text, const cNumberConversionFormat& format) {
  return static_cast<long long>(
      parseOrThrow(text.size() ? text.data() : static_cast<const unsigned int*>(nullptr), text.size(), format, false));
}

unsigned long long cNumberConversion::fromStringToUnsigned(const cAsciiString& text,
                                                           const cNumberConversionFormat& format) {
  return parseOrThrow(text.c_str(), text.size(), format, true);
}

unsigned long long cNumberConversion::fromStringToUnsigned(const qucs::cString& text,
                                                           const cNumberConversionFormat& format) {
  return parseOrThrow(text.size() ? text.data() : static_cast<const unsigned int*>(nullptr), text.size(), format, true);
}

// --- text to double -------------------------------------------------------------

double cNumberConversion::fromStringToDouble(const char* text, unsigned int length,
                                             const cNumberConversionFormat& format) {
  double result;
  unsigned int bad = 0;
  if (!text) length = 0;
  if (!parseDouble(text, length, format, result, bad)) cSTDExceptions::throwInvalidDecimal(text, length, bad);
  return result;
}
double cNumberConversion::fromStringToDouble(const char* text, const cNumberConversionFormat& format) {
  return fromStringToDouble(text, text ? static_cast<unsigned int>(std::strlen(text)) : 0, format);
}
double cNumberConversion::fromStringToDouble(const cAsciiString& text, const cNumberConversionFormat& format) {
  return fromStringToDouble(text.c_str(), text.size(), format);
}
double cNumberConversion::fromStringToDouble(const tByteArray& text, const cNumberConversionFormat& format) {
  return fromStringToDouble(text.size() ? text.data() : "", text.size(), format);
}
double cNumberConversion::fromStringToDouble(const tConstByteArrayRef& text, const cNumberConversionFormat& format) {
  return fromStringToDouble(bytesOf(text), text.size(), format);
}
double cNumberConversion::fromStringToDouble(const qucs::cString& text, const cNumberConversionFormat& format) {
  double result;
  unsigned int bad = 0;
  if (!parseDouble(text.size() ? text.data() : static_cast<const unsigned int*>(nullptr), text.size(), format, result,
                   bad))
    cSTDExceptions::throwInvalidDecimal(text, bad);
  return result;
}

}  // namespace qstd
