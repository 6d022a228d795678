/// \class qucs::cEnDecUTF8
/// The UTF-8 endec ("Endec-UTF8"), the system's default encoder.
///
/// Its rules are the library's own and are kept for compatibility with data
/// already written:
/// - characters from 200000 (decimal) up are written as five bytes, which the
/// \code
///   decoder rejects; a six-byte form is never written;
/// \endcode
/// - decoding reads each character through an eight-byte window padded with
/// \code
///   zero bytes, so a zero byte (a NUL character, or the end of the input
///   inside a sequence) is an error;
/// \endcode
/// - continuation bytes are not checked, and a stray continuation byte decodes
/// \code
///   to its own value.
/// \endcode
#ifndef QELCORE_UCS_CENDECUTF8_H
#define QELCORE_UCS_CENDECUTF8_H

#include "qelcore/ucs/cabstractendec.h"

namespace qucs {

class QEL_EXPORT cEnDecUTF8 : public cAbstractEnDec {
public:
  /// The endec behind cString::toUTF8 and cString::fromUTF8.
  static const cAbstractEnDec& defaultEnDec();

  /// Appends the encoding of one character.
  static void encodeChar(unsigned int c, qstd::tArray<char>& out);
  /// Encodes `count` characters into `buffer`, memory of the caller's. Returns
  /// the number of bytes of the encoding; when that is more than `size`,
  /// nothing is written and the caller can try again with that much room.
  static unsigned int encode(const unsigned int* chars, unsigned int count, char* buffer, unsigned int size);

  qstd::cAsciiString name() const override;
  using cAbstractEnDec::decode;
  using cAbstractEnDec::encode;
  void encode(const cString& text, qstd::tArray<char>& out) const override;
  void decode(const qstd::tConstArrayRef<char>& bytes, cString& out) const override;
};

}  // namespace qucs

#endif
