#include "qelcore/qce/detail/netsockaddr.h"

#include <cstring>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/platform/cnativesockaddr.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/cqceexceptions.h"
#include "qelcore/qce/net++/cnetabstractipaddress.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/std/casciistring.h"

namespace qce {
namespace detail {

using qstd::cAsciiString;
using qstd::tAutoPtr;

namespace {

tAutoPtr<cNetAbstractAddress> ipv6() { return qpi::system().coreExtensions().createNetAddress("TcpIpv6"); }

}  // namespace

tAutoPtr<cNetAbstractAddress> addressFromSockAddr(const void* sockAddr, unsigned int size) {
  unsigned int value = 0, port = 0;
  if (size && qpi::cNativeSockAddr::toIPv4(sockAddr, size, value, port))
    return tAutoPtr<cNetAbstractAddress>(new cNetIPv4Address(value, port));
  unsigned char bytes[16];
  if (size && qpi::cNativeSockAddr::toIPv6(sockAddr, size, bytes, port)) {
    tAutoPtr<cNetAbstractAddress> a = ipv6();
    if (a->fromSockAddr(sockAddr, size)) return a;
  }
  cQCEExceptions::throwSocketNotOpen();
}

tAutoPtr<cNetAbstractAddress> addressFromString(const cAsciiString& text) {
  const char* s = text.c_str();
  static const char localhost[] = "localhost:";
  tAutoPtr<cNetAbstractAddress> a;
  if (s[0] == '[') {
    a = ipv6();
  } else if (std::strncmp(s, localhost, sizeof localhost - 1) == 0) {
    a.reset(new cNetIPv4Address);
    a->fromString(cAsciiString("127.0.0.1:") + (s + sizeof localhost - 1));
    return a;
  } else {
    unsigned int colons = 0;
    bool hex = false;
    for (const char* p = s; *p; ++p) {
      if (*p == ':')
        ++colons;
      else if ((*p >= 'a' && *p <= 'f') || (*p >= 'A' && *p <= 'F'))
        hex = true;
      else if (!(*p >= '0' && *p <= '9') && *p != '.')
        cQCEExceptions::throwHostName(text);
    }
    // Several colons: an IPv6 address without brackets, so without a port.
    if (colons > 1)
      a = ipv6();
    else if (hex)
      cQCEExceptions::throwHostName(text);
    else
      a.reset(new cNetIPv4Address);
  }
  a->fromString(text);
  return a;
}

unsigned int toSockAddr(const cNetAbstractAddress& address, bool needPort, void* buffer, unsigned int size) {
  const cNetAbstractIPAddress* ip = address.isIPAddress();
  const unsigned int written = ip ? address.toSockAddr(buffer, size) : 0;
  if (written == 0) cQCEExceptions::throwUnusableAddress(address.toString(cNetAbstractAddress::WithPort));
  if (needPort && portOf(buffer, written) == 0)
    cQCEExceptions::throwUnusableAddress(address.toString(cNetAbstractAddress::WithPort));
  return written;
}

unsigned int portOf(const void* sockAddr, unsigned int size) {
  unsigned int value = 0, port = 0;
  unsigned char bytes[16];
  if (qpi::cNativeSockAddr::toIPv4(sockAddr, size, value, port) ||
      qpi::cNativeSockAddr::toIPv6(sockAddr, size, bytes, port))
    return port;
  return 0;
}

}  // namespace detail
}  // namespace qce
