// Unsigned 32-bit decimal numbers written into and read from character runs,
// for the text forms of addresses and locations (no allocation, no format
// object: the ids are always plain decimal).
#ifndef QELCORE_QCS_DETAIL_DECIMALTEXT_H
#define QELCORE_QCS_DETAIL_DECIMALTEXT_H

#include "qelcore/std/cstdexceptions.h"

namespace qcs {
namespace detail {

enum : unsigned int { MaxUInt32Digits = 10 };

// Writes `value` at `out` (room for MaxUInt32Digits) and returns the count.
inline unsigned int writeDecimal(unsigned int value, char* out) {
  char digits[MaxUInt32Digits];
  unsigned int n = 0;
  do {
    digits[n++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  for (unsigned int i = 0; i < n; ++i) out[i] = digits[n - 1 - i];
  return n;
}

// Reads exactly `length` characters as an unsigned 32-bit decimal number.
// An empty run, a character that is no digit, or a value above 4294967295
// throws the invalid-decimal runtime exception naming the offending index.
inline void readDecimal(const char* text, unsigned int length, unsigned int& value) {
  if (length == 0) qstd::cSTDExceptions::throwInvalidDecimal(text, 0, 0);
  unsigned long long v = 0;
  for (unsigned int i = 0; i < length; ++i) {
    const unsigned int d = static_cast<unsigned char>(text[i]) - static_cast<unsigned int>('0');
    v = v * 10 + d;
    if (d > 9 || v > 0xFFFFFFFFull) qstd::cSTDExceptions::throwInvalidDecimal(text, length, i);
  }
  value = static_cast<unsigned int>(v);
}

}  // namespace detail
}  // namespace qcs

#endif
