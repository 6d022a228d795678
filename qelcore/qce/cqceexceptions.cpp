#include "qelcore/qce/cqceexceptions.h"

#include "qelcore/qce/cunsupportedextensionexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qce {

using qstd::cRuntimeException;
using qucs::cLIMessage;

void cQCEExceptions::throwUnsupportedExtension(const char* kindText, const qstd::cAsciiString& typeName,
                                               bool otherFound, qstd::cCallSite at) {
  throw cUnsupportedExtensionException(kindText, typeName, otherFound, at.file, at.line);
}

void cQCEExceptions::throwNotAnIPAddress(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Network address type is not an ip address!"), at.file, at.line);
}

void cQCEExceptions::throwExpectingNumber(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Expecting an unsigned decimal number!"), at.file, at.line);
}

void cQCEExceptions::throwIPPartRange(long long number, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$IP number part (%number%) is not in range of 0..255!") << number, at.file,
                          at.line);
}

void cQCEExceptions::throwExpectingPort(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Expecting port number!"), at.file, at.line);
}

void cQCEExceptions::throwPortRange(long long number, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Given port number (%number%) is not in range of 0..65535") << number,
                          at.file, at.line);
}

void cQCEExceptions::throwMalformedIPv6(const qstd::cAsciiString& text, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Malformed IPv6 address (\"%address%\")!") << text, at.file, at.line);
}

void cQCEExceptions::throwHostName(const qstd::cAsciiString& text, qstd::cCallSite at) {
  throw cRuntimeException(
      cLIMessage("$QTR$Host names are not resolved (\"%address%\"); give a numeric address!") << text, at.file,
      at.line);
}

void cQCEExceptions::throwUnusableAddress(const qstd::cAsciiString& text, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Network address (\"%address%\") cannot be used for a socket!") << text,
                          at.file, at.line);
}

void cQCEExceptions::throwSocketNotOpen(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Network socket is not open!"), at.file, at.line);
}

void cQCEExceptions::throwNotConnected(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Network connection is not connected!"), at.file, at.line);
}

void cQCEExceptions::throwConsumeTooMuch(unsigned long long count, unsigned long long size, qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Cannot consume %count% of %size% received bytes!") << count << size,
                            at.file, at.line);
}

void cQCEExceptions::throwQueueWithoutAIO(qstd::cCallSite at) {
  throw qstd::cBugException(
      cLIMessage("$QTR$The work queue's event processor drives the queue itself and cannot wait on sockets!"), at.file,
      at.line);
}

}  // namespace qce
