// Integers and doubles to digit text and back, driven by a
// cNumberConversionFormat (the system's default when none is given).
//
// Text forms exist for cAsciiString, cString and byte arrays; the appending
// forms add to what the target already holds.
#ifndef QELCORE_STD_CNUMBERCONVERSION_H
#define QELCORE_STD_CNUMBERCONVERSION_H

#include <type_traits>

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tconstarrayref.h"

namespace qucs {
class cString;
}

namespace qstd {

class QEL_EXPORT cNumberConversion {
public:
  typedef tArray<char, tArrayByteLevelTraits<char>> tByteArray;
  typedef tConstArrayRef<char, tArrayByteLevelTraits<char>> tConstByteArrayRef;

  // Integer to text: any integer type, returning a new string or appending.
  template <typename I>
  static typename std::enable_if<std::is_integral<I>::value && !std::is_same<I, bool>::value, cAsciiString>::type
  toString(I value, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault()) {
    cAsciiString out;
    toString(value, out, format);
    return out;
  }
  template <typename I>
  static typename std::enable_if<std::is_integral<I>::value && !std::is_same<I, bool>::value>::type toString(
      I value, cAsciiString& out, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault()) {
    appendAny(value, out, format);
  }
  template <typename I>
  static typename std::enable_if<std::is_integral<I>::value && !std::is_same<I, bool>::value>::type toString(
      I value, qucs::cString& out, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault()) {
    appendAny(value, out, format);
  }
  template <typename I>
  static typename std::enable_if<std::is_integral<I>::value && !std::is_same<I, bool>::value>::type toString(
      I value, tByteArray& out, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault()) {
    appendAny(value, out, format);
  }

  static void appendSigned(long long value, cAsciiString& out, const cNumberConversionFormat& format);
  static void appendSigned(long long value, qucs::cString& out, const cNumberConversionFormat& format);
  static void appendSigned(long long value, tByteArray& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, cAsciiString& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, qucs::cString& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, tByteArray& out, const cNumberConversionFormat& format);

  // Double to text (always base 10 with the format's digit symbols).
  static cAsciiString toStringFromDouble(
      double value, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, cAsciiString& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, qucs::cString& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, tByteArray& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());

private:
  template <typename I, typename Out>
  static void appendAny(I value, Out& out, const cNumberConversionFormat& format) {
    if (std::is_signed<I>::value)
      appendSigned(static_cast<long long>(value), out, format);
    else
      appendUnsigned(static_cast<unsigned long long>(value), out, format);
  }

public:
  // Text to integer; an invalid character throws cRuntimeException
  // "Invalid decimal number ..." with its index. A value outside the 64-bit
  // range throws cNumberConversionException at the digit that passes it.
  static long long fromString(const cAsciiString& text,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static long long fromString(const qucs::cString& text,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static long long fromString(const char* text,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static long long fromString(const char* text, unsigned int length,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static long long fromString(const tByteArray& text,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static long long fromString(const tConstByteArrayRef& text,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());

  // Text to an unsigned 64-bit integer (0 to 2^64 - 1), read as fromString()
  // reads; a minus sign is accepted only before a zero value.
  static unsigned long long fromStringToUnsigned(
      const cAsciiString& text, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static unsigned long long fromStringToUnsigned(
      const qucs::cString& text, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());

  // Text to double.
  static double fromStringToDouble(const cAsciiString& text,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static double fromStringToDouble(const qucs::cString& text,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static double fromStringToDouble(const char* text,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static double fromStringToDouble(const char* text, unsigned int length,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static double fromStringToDouble(const tByteArray& text,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static double fromStringToDouble(const tConstByteArrayRef& text,
                                   const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
};

}  // namespace qstd

#endif
