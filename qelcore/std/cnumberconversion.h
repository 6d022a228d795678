/// \class qstd::cNumberConversion
/// Integers and doubles to digit text and back, driven by a
/// cNumberConversionFormat (the system's default when none is given).
///
/// Text forms exist for cAsciiString, cString and byte arrays; the appending
/// forms add to what the target already holds. toChars writes into a buffer
/// of the caller's:
///
/// \code
///   char buf[32];
///   unsigned int n = cNumberConversion::toChars(value, buf, sizeof buf);
///   if (n <= sizeof buf) use(buf, n);   // no terminating zero is written
/// \endcode
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
  /// Bytes, as number texts are written into them.
  typedef tArray<char, tArrayByteLevelTraits<char>> tByteArray;
  /// A view onto bytes to read a number from.
  typedef tConstArrayRef<char, tArrayByteLevelTraits<char>> tConstByteArrayRef;

  ///@{
  /// Integer to text: any integer type, returning a new string or appending.
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
  ///@}

  ///@{
  /// Integer or double to text in `buffer` (no terminating zero). Returns the
  /// length of the text; when that is more than `size`, nothing is written and
  /// the caller can try again with that much room.
  template <typename I>
  static typename std::enable_if<std::is_integral<I>::value && !std::is_same<I, bool>::value, unsigned int>::type
  toChars(I value, char* buffer, unsigned int size,
          const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault()) {
    if (std::is_signed<I>::value) return signedToChars(static_cast<long long>(value), buffer, size, format);
    return unsignedToChars(static_cast<unsigned long long>(value), buffer, size, format);
  }
  static unsigned int toChars(double value, char* buffer, unsigned int size,
                              const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  ///@}

  ///@{
  /// Appends a 64-bit integer to `out` in `format`.
  static void appendSigned(long long value, cAsciiString& out, const cNumberConversionFormat& format);
  static void appendSigned(long long value, qucs::cString& out, const cNumberConversionFormat& format);
  static void appendSigned(long long value, tByteArray& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, cAsciiString& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, qucs::cString& out, const cNumberConversionFormat& format);
  static void appendUnsigned(unsigned long long value, tByteArray& out, const cNumberConversionFormat& format);
  ///@}

  ///@{
  /// Double to text (always base 10 with the format's digit symbols).
  static cAsciiString toStringFromDouble(
      double value, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, cAsciiString& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, qucs::cString& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static void toStringFromDouble(double value, tByteArray& out,
                                 const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  ///@}

private:
  static unsigned int signedToChars(long long value, char* buffer, unsigned int size,
                                    const cNumberConversionFormat& format);
  static unsigned int unsignedToChars(unsigned long long value, char* buffer, unsigned int size,
                                      const cNumberConversionFormat& format);
  template <typename I, typename Out>
  static void appendAny(I value, Out& out, const cNumberConversionFormat& format) {
    if (std::is_signed<I>::value)
      appendSigned(static_cast<long long>(value), out, format);
    else
      appendUnsigned(static_cast<unsigned long long>(value), out, format);
  }

public:
  ///@{
  /// Text to integer; an invalid character throws cRuntimeException
  /// "Invalid decimal number ..." with its index. A value outside the 64-bit
  /// range throws cNumberConversionException at the digit that passes it.
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
  ///@}

  ///@{
  /// Text to an unsigned 64-bit integer (0 to 2^64 - 1), read as fromString()
  /// reads; a minus sign is accepted only before a zero value.
  static unsigned long long fromStringToUnsigned(
      const cAsciiString& text, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  static unsigned long long fromStringToUnsigned(
      const qucs::cString& text, const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault());
  ///@}

  ///@{
  /// Text to double.
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
  ///@}
};

}  // namespace qstd

#endif
