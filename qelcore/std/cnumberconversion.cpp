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

// Makes room for n more elements at the end of `out`; returns where they go.
template <typename Arr>
typename Arr::ElementType* appendRoom(Arr& out, unsigned int n) {
  const unsigned int at = out.appendElements(n);
  return out.data() + at;
}

// Characters are widened as unsigned bytes, so symbols above 127 keep their
// value in a cString.
template <typename C>
inline C widen(char c) {
  return static_cast<C>(static_cast<unsigned char>(c));
}

template <typename Arr>
void appendChars(Arr& out, const char* s, unsigned int n) {
  if (n == 0) return;
  typename Arr::ElementType* p = appendRoom(out, n);
  for (unsigned int i = 0; i < n; ++i) p[i] = widen<typename Arr::ElementType>(s[i]);
}

void appendChars(cAsciiString& out, const char* s, unsigned int n) {
  if (n) out.append(s, n);
}

void appendChars(cNumberConversion::tByteArray& out, const char* s, unsigned int n) {
  if (n) out.append(s, n);
}

// --- integer to text -------------------------------------------------------

// "00" "01" ... "99": two decimal digits per lookup.
struct cDigitPairs {
  char pair[200];
  constexpr cDigitPairs() : pair{} {
    for (unsigned int i = 0; i < 100; ++i) {
      pair[2 * i] = static_cast<char>('0' + i / 10);
      pair[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
  }
};
constexpr cDigitPairs DigitPairs;

const unsigned long long PowersOfTen[20] = {1ull,
                                            10ull,
                                            100ull,
                                            1000ull,
                                            10000ull,
                                            100000ull,
                                            1000000ull,
                                            10000000ull,
                                            100000000ull,
                                            1000000000ull,
                                            10000000000ull,
                                            100000000000ull,
                                            1000000000000ull,
                                            10000000000000ull,
                                            100000000000000ull,
                                            1000000000000000ull,
                                            10000000000000000ull,
                                            100000000000000000ull,
                                            1000000000000000000ull,
                                            10000000000000000000ull};

inline unsigned int bitLength(unsigned long long v) {
#if defined(__GNUC__)
  return 64u - static_cast<unsigned int>(__builtin_clzll(v | 1));
#else
  unsigned int n = 1;
  while (v >>= 1) ++n;
  return n;
#endif
}

// Number of decimal digits of `v` (1 for 0): log10 estimated from the bit
// length (1233 / 4096 is just above log10 2), corrected by one comparison.
inline unsigned int decimalLength(unsigned long long v) {
  const unsigned int guess = (bitLength(v) * 1233u) >> 12;
  return guess + 1 - ((v | 1) < PowersOfTen[guess]);
}

template <typename C>
inline void writePair(C* p, unsigned int r) {
  if (sizeof(C) == 1) {
    std::memcpy(p, DigitPairs.pair + 2 * r, 2);
  } else {
    p[0] = static_cast<C>(DigitPairs.pair[2 * r]);
    p[1] = static_cast<C>(DigitPairs.pair[2 * r + 1]);
  }
}

// Exactly eight digits of `x` (below 10^8) at `p`: four independent pairs in
// 32-bit arithmetic.
template <typename C>
inline void writeEight(unsigned int x, C* p) {
  const unsigned int high = x / 10000, low = x % 10000;
  writePair(p, high / 100);
  writePair(p + 2, high % 100);
  writePair(p + 4, low / 100);
  writePair(p + 6, low % 100);
}

// Writes the decimal digits of `v` backwards, ending just before `end`: eight
// at a time while more remain, then two at a time.
template <typename C>
inline void writeDecimal(unsigned long long v, C* end) {
  while (v >= 100000000ull) {
    const unsigned long long q = v / 100000000ull;
    end -= 8;
    writeEight(static_cast<unsigned int>(v - q * 100000000ull), end);
    v = q;
  }
  unsigned int x = static_cast<unsigned int>(v);
  while (x >= 100) {
    const unsigned int r = x % 100;
    x /= 100;
    end -= 2;
    writePair(end, r);
  }
  if (x >= 10)
    writePair(end - 2, x);
  else
    end[-1] = static_cast<C>('0' + x);
}

// Writes the digits of `value` in any base backwards, ending just before
// `end`; returns the number of digits (at least one).
unsigned int digitsBackward(unsigned long long value, unsigned int base, const char* symbols, char* end) {
  char* p = end;
  do {
    *--p = symbols[value % base];
    value /= base;
  } while (value);
  return static_cast<unsigned int>(end - p);
}

// The text of one integer: sign, padding with the leading digit up to the
// fixed width (between the sign and the digits: -5 in width 4 is -005), then
// the digits. Measured first, so that it can be written straight into its
// place.
class cIntegerText {
public:
  cIntegerText(unsigned long long magnitude, bool negative, const cNumberConversionFormat& format)
      : miMagnitude(magnitude), mbNegative(negative), mrFormat(format) {
    // Decimal digits with the standard symbols come from the pair table,
    // everything else from the format's symbols.
    mbDecimal = format.base() == 10 && format.hasStandardSymbols();
    if (mbDecimal)
      miDigits = decimalLength(magnitude);
    else
      miDigits = digitsBackward(magnitude, format.base(), format.getDigitSymbolSet(), maDigits + sizeof maDigits);
    const unsigned int used = miDigits + (negative ? 1 : 0);
    miLength = format.fixedWidth() > used ? format.fixedWidth() : used;
  }

  unsigned int length() const { return miLength; }

  // Writes length() characters to `dst`.
  template <typename C>
  void write(C* dst) const {
    C* p = dst;
    if (mbNegative) *p++ = static_cast<C>('-');
    C* const digits = dst + (miLength - miDigits);
    if (p != digits) {
      const C fill = widen<C>(mrFormat.leadingDigit());
      while (p != digits) *p++ = fill;
    }
    if (mbDecimal) {
      writeDecimal(miMagnitude, digits + miDigits);
    } else {
      const char* from = maDigits + sizeof maDigits - miDigits;
      for (unsigned int i = 0; i < miDigits; ++i) digits[i] = widen<C>(from[i]);
    }
  }

private:
  unsigned long long miMagnitude;
  bool mbNegative;
  bool mbDecimal;
  const cNumberConversionFormat& mrFormat;
  unsigned int miDigits;
  unsigned int miLength;
  char maDigits[64];  // 64 binary digits at most
};

inline unsigned long long magnitudeOf(long long value) {
  const unsigned long long m = static_cast<unsigned long long>(value);
  return value < 0 ? 0ULL - m : m;
}

template <typename Out>
void appendInteger(unsigned long long magnitude, bool negative, Out& out, const cNumberConversionFormat& format) {
  const cIntegerText text(magnitude, negative, format);
  text.write(appendRoom(out, text.length()));
}

unsigned int integerToChars(unsigned long long magnitude, bool negative, char* buffer, unsigned int size,
                            const cNumberConversionFormat& format) {
  const cIntegerText text(magnitude, negative, format);
  if (text.length() <= size) text.write(buffer);
  return text.length();
}

// --- double to text ---------------------------------------------------------

double negativePowerOfTen(unsigned int precision) {
  static const double kTable[] = {1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
                                  1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};
  if (precision < sizeof kTable / sizeof kTable[0]) return kTable[precision];
  return std::pow(10.0, -static_cast<double>(precision));
}

// fmod(w, 10) of a finite w of at least 2^63, without the long division that
// fmod does for large exponents. Such a w is the integer m * 2^e (m its 53-bit
// significand, e >= 10), so w mod 10 is (m mod 10) * (2^e mod 10) mod 10, and
// 2^e mod 10 runs through 2, 4, 8, 6.
inline unsigned int largeDecimalDigit(double w) {
  unsigned long long bits;
  std::memcpy(&bits, &w, sizeof bits);
  const unsigned long long m = (bits & 0xFFFFFFFFFFFFFull) | 0x10000000000000ull;
  const unsigned int e = static_cast<unsigned int>(bits >> 52) - 1075u;
  static const unsigned char powerOfTwoMod10[4] = {6, 2, 4, 8};
  return static_cast<unsigned int>(m % 10) * powerOfTwoMod10[e & 3] % 10;
}

// The digit fmod(w, 10) stands for (w >= 0). fmod is exact, so below 2^63
// its integer part equals the last decimal digit of the truncated value. An
// infinite w has no digit (fmod gives NaN).
inline unsigned int decimalDigit(double w, bool integerPart) {
  if (w < 9.2e18) return static_cast<unsigned int>(static_cast<unsigned long long>(w) % 10);
  if (std::isinf(w)) cSTDExceptions::throwInvalidFractionalNumber(integerPart);
  return largeDecimalDigit(w);
}

// Room that formatDouble needs: sign, at most 309 integer digits, the point
// and the fraction.
std::size_t doubleTextCapacity(const cNumberConversionFormat& format) {
  return 1 + 320 + 1 + static_cast<std::size_t>(format.precision());
}

// Writes the text of `value` to `buf` (doubleTextCapacity bytes) and returns
// its length.
//
// The digits are those of the plain rule: add half a unit of the last place,
// take the integer digits as fmod(w, 10) while dividing w by ten, and the
// fraction digits as fmod(w, 10) while multiplying w by ten. Below 2^53 the
// divisions can be left out: dividing such a w by ten never rounds up to the
// next integer (w is a multiple of its unit u, so w / 10 lies at least u / 10
// below it, while w / 10 rounds by at most u / 16), so the integer digits are
// exactly those of the truncated value.
std::size_t formatDouble(double value, const cNumberConversionFormat& format, char* buf) {
  if (std::isnan(value)) {
    std::memcpy(buf, "nan", 3);
    return 3;
  }
  if (std::isinf(value)) {
    std::memcpy(buf, value > 0 ? "+inf" : "-inf", 4);
    return 4;
  }
  const char* symbols = format.getDigitSymbolSet();
  const unsigned int precision = format.precision();
  const bool withInteger = format.isAddIntegerPart();
  const bool withFraction = format.isAddFractionalPart() && precision != 0;
  std::size_t len = 0;

  if (value < 0) {
    if (withInteger) buf[len++] = '-';
    value = -value;
  }
  value += 0.5 * negativePowerOfTen(precision);

  if (withInteger) {
    if (value < 1) {
      buf[len++] = symbols[0];
    } else if (value < 9007199254740992.0) {
      const unsigned long long n = static_cast<unsigned long long>(value);
      const unsigned int digits = decimalLength(n);
      char* end = buf + len + digits;
      if (format.hasStandardSymbols()) {
        writeDecimal(n, end);
      } else {
        unsigned long long v = n;
        for (char* p = end; p != buf + len; v /= 10) *--p = symbols[v % 10];
      }
      len += digits;
    } else {
      char digits[320];
      unsigned int n = 0;
      for (double w = value; w >= 1 && n < sizeof digits; w /= 10) digits[n++] = symbols[decimalDigit(w, true)];
      while (n) buf[len++] = digits[--n];
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
      const unsigned int d = decimalDigit(w, false);
      buf[len++] = symbols[d];
      if (d != 0) zeroRun = len;
    }
    if (format.isRemoveTrainlingZeros()) len = zeroRun;
  }
  return len;
}

// Formats into a buffer on the stack when the precision allows, else on the heap.
class cDoubleText {
public:
  cDoubleText(double value, const cNumberConversionFormat& format) : mpText(maStack) {
    const std::size_t capacity = doubleTextCapacity(format);
    if (capacity > sizeof maStack) {
      mpHeap.reset(new char[capacity]);
      mpText = mpHeap.get();
    }
    miLength = formatDouble(value, format, mpText);
  }
  const char* text() const { return mpText; }
  unsigned int length() const { return static_cast<unsigned int>(miLength); }

private:
  char maStack[512];
  std::unique_ptr<char[]> mpHeap;
  char* mpText;
  std::size_t miLength;
};

template <typename Out>
void appendDouble(double value, Out& out, const cNumberConversionFormat& format) {
  const cDoubleText text(value, format);
  appendChars(out, text.text(), text.length());
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

// Exponents beyond this give the same infinities and zeros; the cap keeps
// the accumulation free of overflow.
const unsigned int ExponentCap = 100000000;

// The sign and the exponent applied to the mantissa, by binary
// exponentiation of ten (or a tenth).
inline double scaleByExponent(double value, bool negative, unsigned int exponent, bool exponentNegative) {
  if (negative) value = -value;
  double factor = exponentNegative ? 0.1 : 10.0;
  while (exponent != 0) {
    if (exponent & 1) value *= factor;
    exponent >>= 1;
    factor *= factor;
  }
  return value;
}

// The text as numbers are usually written, [-]digits[.digits][e[+-]digits]
// after the leading blanks, read with the same arithmetic as parseDouble but
// without its state machine. False for any other text, which parseDouble
// then reads from the start.
//
// Integer digits are gathered in an integer while the value stays below
// 2^53: there each step value * 10 + d of the general loop is exact, so both
// give the same double.
template <typename C>
bool parsePlainDouble(const C* text, unsigned int length, bool ignoreLeadingSpaces, double& result) {
  unsigned int i = 0;
  if (ignoreLeadingSpaces)
    while (i < length && code(text[i]) == ' ') ++i;
  const bool negative = i < length && code(text[i]) == '-';
  if (negative) ++i;
  if (i == length || code(text[i]) - '0' > 9) return false;
  unsigned long long whole = 0;
  unsigned int d;
  while (i < length && (d = code(text[i]) - '0') <= 9 && whole < 900719925474099ull) {
    whole = whole * 10 + d;
    ++i;
  }
  double value = static_cast<double>(whole);
  while (i < length && (d = code(text[i]) - '0') <= 9) {
    value = value * 10 + d;
    ++i;
  }
  if (i < length && code(text[i]) == '.') {
    double scale = 1.0;
    for (++i; i < length && (d = code(text[i]) - '0') <= 9; ++i) {
      scale *= 0.1;
      value += d * scale;
    }
  }
  unsigned int exponent = 0;
  bool exponentNegative = false;
  if (i < length && (code(text[i]) | 0x20) == 'e') {
    ++i;
    if (i < length && (code(text[i]) == '-' || code(text[i]) == '+')) {
      exponentNegative = code(text[i]) == '-';
      ++i;
    }
    if (i == length || code(text[i]) - '0' > 9) return false;
    for (; i < length && (d = code(text[i]) - '0') <= 9; ++i)
      if (exponent < ExponentCap) exponent = exponent * 10 + d;
  }
  if (i != length) return false;
  result = scaleByExponent(value, negative, exponent, exponentNegative);
  return true;
}

template <typename C>
bool parseDouble(const C* text, unsigned int length, const cNumberConversionFormat& format, double& result,
                 unsigned int& badIndex) {
  if (parsePlainDouble(text, length, format.ignoreLeadingSpaces(), result)) return true;
  unsigned int i = 0;
  if (format.ignoreLeadingSpaces())
    while (i < length && code(text[i]) == ' ') ++i;
  bool digitSeen = false, exponentMode = false, exponentDigitSeen = false, fraction = false;
  bool negative = false, exponentNegative = false;
  double value = 0.0, scale = 1.0;
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
      if (exponent < ExponentCap) exponent = exponent * 10 + d;
    } else if (!fraction) {
      value = value * 10 + d;
    } else {
      scale *= 0.1;
      value += d * scale;
    }
  }
  result = scaleByExponent(value, negative, exponent, exponentNegative);
  return true;
}

const char* bytesOf(const cNumberConversion::tConstByteArrayRef& text) { return text.size() ? text.data() : ""; }

}  // namespace

// --- integer to text ---------------------------------------------------------

void cNumberConversion::appendSigned(long long value, cAsciiString& out, const cNumberConversionFormat& format) {
  appendInteger(magnitudeOf(value), value < 0, out, format);
}
void cNumberConversion::appendSigned(long long value, qucs::cString& out, const cNumberConversionFormat& format) {
  appendInteger(magnitudeOf(value), value < 0, out, format);
}
void cNumberConversion::appendSigned(long long value, tByteArray& out, const cNumberConversionFormat& format) {
  appendInteger(magnitudeOf(value), value < 0, out, format);
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
unsigned int cNumberConversion::signedToChars(long long value, char* buffer, unsigned int size,
                                              const cNumberConversionFormat& format) {
  return integerToChars(magnitudeOf(value), value < 0, buffer, size, format);
}
unsigned int cNumberConversion::unsignedToChars(unsigned long long value, char* buffer, unsigned int size,
                                                const cNumberConversionFormat& format) {
  return integerToChars(value, false, buffer, size, format);
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
unsigned int cNumberConversion::toChars(double value, char* buffer, unsigned int size,
                                        const cNumberConversionFormat& format) {
  const cDoubleText text(value, format);
  if (text.length() <= size && text.length() != 0) std::memcpy(buffer, text.text(), text.length());
  return text.length();
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
