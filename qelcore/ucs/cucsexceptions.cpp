#include "qelcore/ucs/cucsexceptions.h"

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qucs {

namespace {

// Raised here on behalf of the encoders; the message names the operation.
const char* const Source = "ucs/cucsexceptions.cpp";

[[noreturn]] void bug(const cLIMessage& msg, unsigned int line) { throw qstd::cBugException(msg, Source, line); }
[[noreturn]] void runtime(const cLIMessage& msg, unsigned int line) {
  throw qstd::cRuntimeException(msg, Source, line);
}

}  // namespace

void cUCSExceptions::throwNotImplementedEncode8(const qstd::cAsciiString& endecName) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::encode (ucs32 -> ascii)" << endecName, __LINE__);
}

void cUCSExceptions::throwNotImplementedEncode16(const qstd::cAsciiString& endecName) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::encode (ucs32 -> ucs16)" << endecName, __LINE__);
}

void cUCSExceptions::throwNotImplementedDecode8(const qstd::cAsciiString& endecName) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::decode (ucs16 -> ascii)" << endecName, __LINE__);
}

void cUCSExceptions::throwNotImplementedDecode16(const qstd::cAsciiString& endecName) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::decode (ucs16 -> ucs32)" << endecName, __LINE__);
}

void cUCSExceptions::throwUTF8UnexpectedEnd(unsigned int index) {
  runtime(cLIMessage() << "$QTR$UTF8 decode error - unexpected end of data at index %index%!" << index, __LINE__);
}

void cUCSExceptions::throwUTF8UnsupportedLength(unsigned int length) {
  runtime(cLIMessage() << "$QTR$UTF8 decode error - unsupported length of %length%!" << length, __LINE__);
}

void cUCSExceptions::throwUTF16Unmappable() {
  runtime(cLIMessage() << "$QTR$Unable to convert unmappable character to utf16!", __LINE__);
}

void cUCSExceptions::throwSourceBufferExhausted() {
  runtime(cLIMessage() << "$QTR$Source buffer exhausted!", __LINE__);
}

void cUCSExceptions::throwUTF16InvalidByteOrderMark() {
  runtime(cLIMessage() << "$QTR$Invalid byte order mark while decoding utf16!", __LINE__);
}

void cUCSExceptions::throwUTF16Corrupt() {
  runtime(cLIMessage() << "$QTR$Unable to read corrupt utf16 data!", __LINE__);
}

void cUCSExceptions::throwUTF16InvalidSequence() {
  runtime(cLIMessage() << "$QTR$Invalid byte sequence while decoding utf16!", __LINE__);
}

void cUCSExceptions::throwUCSDecodeError(const qstd::cAbstractException& cause) {
  qstd::cRuntimeException e(cLIMessage() << "$QTR$Unicode decode error!", Source, __LINE__);
  e.link(cause);
  throw e;
}

void cUCSExceptions::throwUSCEncodeError(const qstd::cAbstractException& cause) {
  qstd::cRuntimeException e(cLIMessage() << "$QTR$Unicode encoding error!", Source, __LINE__);
  e.link(cause);
  throw e;
}

}  // namespace qucs
