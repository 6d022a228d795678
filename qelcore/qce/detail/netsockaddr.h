// Between the library's address objects and the platform's socket
// addresses, for the network classes.
#ifndef QELCORE_QCE_DETAIL_NETSOCKADDR_H
#define QELCORE_QCE_DETAIL_NETSOCKADDR_H

#include "qelcore/std/tautoptr.h"

namespace qstd {
class cAsciiString;
}

namespace qce {

class cNetAbstractAddress;

namespace detail {

// The address object for a socket address: "TcpIpv4", or "TcpIpv6" made by
// the core extensions (the IPv6 module). Runtime exception "Network socket
// is not open!" when `size` is 0 (the system could not tell).
qstd::tAutoPtr<cNetAbstractAddress> addressFromSockAddr(const void* sockAddr, unsigned int size);
// See cNetAbstractSocket::addressFromString().
qstd::tAutoPtr<cNetAbstractAddress> addressFromString(const qstd::cAsciiString& text);
// Writes the socket address of `address` into `buffer` and returns its size.
// Runtime exception "Network address ("%address%") cannot be used for a
// socket!" for an address that is no IP address, or has port 0 while
// `needPort`.
unsigned int toSockAddr(const cNetAbstractAddress& address, bool needPort, void* buffer, unsigned int size);
// The port of an IPv4 or IPv6 socket address; 0 for anything else.
unsigned int portOf(const void* sockAddr, unsigned int size);

}  // namespace detail
}  // namespace qce

#endif
