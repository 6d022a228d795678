/// \class qucs::cAbstractEnDec
/// An encoder/decoder ("endec"): converts a cString of 32-bit characters to
/// bytes or 16-bit units and back. The base implements nothing of the
/// conversions; each subclass overrides the forms its encoding supports, and
/// the others report themselves as not implemented.
///
/// Encoding and decoding append to the output. A failed decode leaves the
/// characters decoded before the error in the target; callers that need the
/// target unchanged decode into a temporary (as cString::fromUTF8 does).
///
/// Endecs are passed around as qstd::tSharedObject<const cAbstractEnDec>.
#ifndef QELCORE_UCS_CABSTRACTENDEC_H
#define QELCORE_UCS_CABSTRACTENDEC_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tconstarrayref.h"

namespace qucs {

class cString;

class QEL_EXPORT cAbstractEnDec {
public:
  virtual ~cAbstractEnDec();

  /// The extension name of the encoding ("Endec-UTF8").
  virtual qstd::cAsciiString name() const = 0;
  /// To 16-bit units.
  virtual void encode(const cString& text, qstd::tArray<unsigned short>& out) const;
  /// To bytes.
  virtual void encode(const cString& text, qstd::tArray<char>& out) const;
  /// Encodes into characters that hold one unit each; does nothing by default.
  virtual void reEncode(const cString& text, cString& out) const;
  /// The byte encoding followed by four zero bytes, enough to terminate the
  /// text for any unit width.
  virtual void encodeCString(const cString& text, qstd::tArray<char>& out) const;
  /// From 16-bit units.
  virtual void decode(const qstd::tConstArrayRef<unsigned short>& units, cString& out) const;
  /// From bytes.
  virtual void decode(const qstd::tConstArrayRef<char>& bytes, cString& out) const;
  /// Decodes characters that hold one unit each; does nothing by default.
  virtual void reDecode(const cString& text, cString& out) const;

  /// From bytes in memory the caller owns, without copying them into an
  /// array first: the same as decode() of a view onto them.
  void decode(const char* bytes, unsigned int length, cString& out) const;
  /// The same for 16-bit units: decode() of a view onto them.
  void decode(const unsigned short* units, unsigned int count, cString& out) const;
};

}  // namespace qucs

#endif
