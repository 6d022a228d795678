/// \class qucs::cUCSExceptions
/// The throw functions of the Unicode subsystem: the failures of the encoders
/// and decoders, each with its fixed text and the position the throw
/// function was called from.
#ifndef QELCORE_UCS_CUCSEXCEPTIONS_H
#define QELCORE_UCS_CUCSEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qstd {
class cAbstractException;
class cAsciiString;
}  // namespace qstd

namespace qucs {

class QEL_EXPORT cUCSExceptions {
public:
  ///@{
  /// cBugException "Not implemented: %name%::encode (ucs32 -> ascii)", for an
  /// endec without a byte encoding; the other three likewise.
  [[noreturn]] static void throwNotImplementedEncode8(const qstd::cAsciiString& endecName,
                                                      qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwNotImplementedEncode16(const qstd::cAsciiString& endecName,
                                                       qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwNotImplementedDecode8(const qstd::cAsciiString& endecName,
                                                      qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwNotImplementedDecode16(const qstd::cAsciiString& endecName,
                                                       qstd::cCallSite at = qstd::cCallSite::here());
  ///@}

  /// cRuntimeException "UTF8 decode error - unexpected end of data at index %index%!";
  /// `index` counts from the first byte of the character being decoded.
  [[noreturn]] static void throwUTF8UnexpectedEnd(unsigned int index, qstd::cCallSite at = qstd::cCallSite::here());
  /// cRuntimeException "UTF8 decode error - unsupported length of %length%!".
  [[noreturn]] static void throwUTF8UnsupportedLength(unsigned int length,
                                                      qstd::cCallSite at = qstd::cCallSite::here());

  /// cRuntimeException "Unable to convert unmappable character to utf16!".
  [[noreturn]] static void throwUTF16Unmappable(qstd::cCallSite at = qstd::cCallSite::here());
  /// cRuntimeException "Source buffer exhausted!".
  [[noreturn]] static void throwSourceBufferExhausted(qstd::cCallSite at = qstd::cCallSite::here());
  /// cRuntimeException "Invalid byte order mark while decoding utf16!".
  [[noreturn]] static void throwUTF16InvalidByteOrderMark(qstd::cCallSite at = qstd::cCallSite::here());
  /// cRuntimeException "Unable to read corrupt utf16 data!".
  [[noreturn]] static void throwUTF16Corrupt(qstd::cCallSite at = qstd::cCallSite::here());
  /// cRuntimeException "Invalid byte sequence while decoding utf16!".
  [[noreturn]] static void throwUTF16InvalidSequence(qstd::cCallSite at = qstd::cCallSite::here());

  ///@{
  /// cRuntimeException "Unicode decode error!" / "Unicode encoding error!"
  /// with a copy of `cause` linked to it.
  [[noreturn]] static void throwUCSDecodeError(const qstd::cAbstractException& cause,
                                               qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwUSCEncodeError(const qstd::cAbstractException& cause,
                                               qstd::cCallSite at = qstd::cCallSite::here());
  ///@}
};

}  // namespace qucs

#endif
