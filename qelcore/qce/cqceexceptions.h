/// \class qce::cQCEExceptions
/// The throw functions of the core extensions and the network addresses. Each
/// records the caller's source file and line.
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
  /// cUnsupportedExtensionException "No %s% of type "%specialized%" found!".
  [[noreturn]] static void throwUnsupportedExtension(const char* kindText, const qstd::cAsciiString& typeName,
                                                     bool otherFound, qstd::cCallSite at = qstd::cCallSite::here());

  /// Runtime exception "Network address type is not an ip address!".
  [[noreturn]] static void throwNotAnIPAddress(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Expecting an unsigned decimal number!".
  [[noreturn]] static void throwExpectingNumber(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "IP number part (%number%) is not in range of 0..255!".
  [[noreturn]] static void throwIPPartRange(long long number, qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Expecting port number!".
  [[noreturn]] static void throwExpectingPort(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Given port number (%number%) is not in range of 0..65535".
  [[noreturn]] static void throwPortRange(long long number, qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Malformed IPv6 address ("%address%")!".
  [[noreturn]] static void throwMalformedIPv6(const qstd::cAsciiString& text,
                                              qstd::cCallSite at = qstd::cCallSite::here());
};

}  // namespace qce

#endif
