/// \class qce::cNetAbstractAddress
/// A network address: a polymorphic value that connections use for their
/// peer and for the sender of received data. Concrete types come from
/// network-address extensions, created by type name:
///
/// \code
/// qstd::tAutoPtr<qce::cNetAbstractAddress> a = qpi::system().coreExtensions().createNetAddress("TcpIpv4");
/// a->fromString("10.0.0.1:8080");
/// a->toString(qce::cNetAbstractAddress::WithPort);     // "10.0.0.1:8080"
/// a->ipAddress();                                      // the IP view, or an exception
/// \endcode
///
/// Concrete addresses also convert to and from the platform's socket address
/// (struct sockaddr_in, sockaddr_in6), so sockets of any kind take them.
#ifndef QELCORE_QCE_NET_CNETABSTRACTADDRESS_H
#define QELCORE_QCE_NET_CNETABSTRACTADDRESS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qce {

class cNetAbstractIPAddress;

class QEL_EXPORT cNetAbstractAddress {
public:
  /// Flags of toString().
  enum { WithPort = 1 };

  cNetAbstractAddress() {}
  ///@{
  /// The base holds no state; copies are plain.
  cNetAbstractAddress(const cNetAbstractAddress&) = default;
  cNetAbstractAddress& operator=(const cNetAbstractAddress&) = default;
  ///@}
  virtual ~cNetAbstractAddress();

  /// The address type name ("TcpIpv4", ...).
  virtual qstd::cAsciiString addrType() const = 0;
  /// Parses `text` into this object, which stays unchanged when it fails.
  virtual cNetAbstractAddress& fromString(const qstd::cAsciiString& text) = 0;
  /// The text form; `flags` is 0 or WithPort.
  virtual qstd::cAsciiString toString(int flags) const = 0;

  /// A copy of the same type.
  virtual cNetAbstractAddress* clone() const = 0;
  /// Same type and same address.
  virtual bool equals(const cNetAbstractAddress& other) const = 0;
  /// Writes the platform's socket address into `buffer`; returns its size,
  /// 0 when `size` is too small (nothing written then).
  virtual unsigned int toSockAddr(void* buffer, unsigned int size) const = 0;
  /// Takes the platform's socket address; false (and this object unchanged)
  /// when it is not one of this type.
  virtual bool fromSockAddr(const void* sockAddr, unsigned int size) = 0;

  ///@{
  /// This object as an IP address; null in the root.
  virtual cNetAbstractIPAddress* isIPAddress();
  virtual const cNetAbstractIPAddress* isIPAddress() const;
  ///@}

  ///@{
  /// *isIPAddress(); runtime exception "Network address type is not an ip
  /// address!" when there is none.
  cNetAbstractIPAddress& ipAddress();
  const cNetAbstractIPAddress& ipAddress() const;
  ///@}
};

}  // namespace qce

#endif
