#include "qelcore/ucs/cucsexceptions.h"

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qucs {

namespace {

// Thrown at the position of the encoder or decoder that failed.
[[noreturn]] void bug(const cLIMessage& msg, qstd::cCallSite at) { throw qstd::cBugException(msg, at.file, at.line); }
[[noreturn]] void runtime(const cLIMessage& msg, qstd::cCallSite at) {
  throw qstd::cRuntimeException(msg, at.file, at.line);
}

}  // namespace

void cUCSExceptions::throwNotImplementedEncode8(const qstd::cAsciiString& endecName, qstd::cCallSite at) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::encode (ucs32 -> ascii)" << endecName, at);
}

void cUCSExceptions::throwNotImplementedEncode16(const qstd::cAsciiString& endecName, qstd::cCallSite at) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::encode (ucs32 -> ucs16)" << endecName, at);
}

void cUCSExceptions::throwNotImplementedDecode8(const qstd::cAsciiString& endecName, qstd::cCallSite at) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::decode (ucs16 -> ascii)" << endecName, at);
}

void cUCSExceptions::throwNotImplementedDecode16(const qstd::cAsciiString& endecName, qstd::cCallSite at) {
  bug(cLIMessage() << "$QTR$Not implemented: %name%::decode (ucs16 -> ucs32)" << endecName, at);
}

void cUCSExceptions::throwUTF8UnexpectedEnd(unsigned int index, qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$UTF8 decode error - unexpected end of data at index %index%!" << index, at);
}

void cUCSExceptions::throwUTF8UnsupportedLength(unsigned int length, qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$UTF8 decode error - unsupported length of %length%!" << length, at);
}

void cUCSExceptions::throwUTF16Unmappable(qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$Unable to convert unmappable character to utf16!", at);
}

void cUCSExceptions::throwSourceBufferExhausted(qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$Source buffer exhausted!", at);
}

void cUCSExceptions::throwUTF16InvalidByteOrderMark(qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$Invalid byte order mark while decoding utf16!", at);
}

void cUCSExceptions::throwUTF16Corrupt(qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$Unable to read corrupt utf16 data!", at);
}

void cUCSExceptions::throwUTF16InvalidSequence(qstd::cCallSite at) {
  runtime(cLIMessage() << "$QTR$Invalid byte sequence while decoding utf16!", at);
}

void cUCSExceptions::throwUCSDecodeError(const qstd::cAbstractException& cause, qstd::cCallSite at) {
  qstd::cRuntimeException e(cLIMessage() << "$QTR$Unicode decode error!", at.file, at.line);
  e.link(cause);
  throw e;
}

void cUCSExceptions::throwUSCEncodeError(const qstd::cAbstractException& cause, qstd::cCallSite at) {
  qstd::cRuntimeException e(cLIMessage() << "$QTR$Unicode encoding error!", at.file, at.line);
  e.link(cause);
  throw e;
}

}  // namespace qucs
