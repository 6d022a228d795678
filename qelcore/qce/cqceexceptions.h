// The throw functions of the core extensions and the network addresses. Each
// records the caller's source file and line.
#ifndef QELCORE_QCE_CQCEEXCEPTIONS_H
#define QELCORE_QCE_CQCEEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qstd {
class cAsciiString;
}

namespace qce {

class QEL_EXPORT cQCEExceptions {
public:
  // cUnsupportedExtensionException "No %s% of type "%specialized%" found!".
  [[noreturn]] static void throwUnsupportedExtension(const char* kindText, const qstd::cAsciiString& typeName,
                                                     bool otherFound, qstd::cCallSite at = qstd::cCallSite::here());

  // Runtime exception "Network address type is not an ip address!".
  [[noreturn]] static void throwNotAnIPAddress(qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Expecting an unsigned decimal number!".
  [[noreturn]] static void throwExpectingNumber(qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "IP number part (%number%) is not in range of 0..255!".
  [[noreturn]] static void throwIPPartRange(long long number, qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Expecting port number!".
  [[noreturn]] static void throwExpectingPort(qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Given port number (%number%) is not in range of 0..65535".
  [[noreturn]] static void throwPortRange(long long number, qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Malformed IPv6 address ("%address%")!".
  [[noreturn]] static void throwMalformedIPv6(const qstd::cAsciiString& text,
                                              qstd::cCallSite at = qstd::cCallSite::here());

  // Runtime exception "Host names are not resolved ("%address%"); give a
  // numeric address!".
  [[noreturn]] static void throwHostName(const qstd::cAsciiString& text, qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Network address ("%address%") cannot be used for a
  // socket!": no IP address, or one without a port where one is needed.
  [[noreturn]] static void throwUnusableAddress(const qstd::cAsciiString& text,
                                                qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Network socket is not open!".
  [[noreturn]] static void throwSocketNotOpen(qstd::cCallSite at = qstd::cCallSite::here());
  // Runtime exception "Network connection is not connected!".
  [[noreturn]] static void throwNotConnected(qstd::cCallSite at = qstd::cCallSite::here());
  // cBugException "Cannot consume %count% of %size% received bytes!".
  [[noreturn]] static void throwConsumeTooMuch(unsigned long long count, unsigned long long size,
                                               qstd::cCallSite at = qstd::cCallSite::here());
  // cBugException "The work queue's event processor drives the queue itself
  // and cannot wait on sockets!".
  [[noreturn]] static void throwQueueWithoutAIO(qstd::cCallSite at = qstd::cCallSite::here());
};

}  // namespace qce

#endif
