/// \class qce::cNetIPv4Address
/// An IPv4 address with a port: the concrete type "TcpIpv4".
///
/// \code
/// qce::cNetIPv4Address a;                 // 0.0.0.0, port 0
/// a.fromString("192.168.1.7:80");
/// sockaddr_in sa;
/// a.toSockAddr(&sa, sizeof sa);           // for connect(), bind(), ...
/// \endcode
#ifndef QELCORE_QCE_NET_CNETIPV4ADDRESS_H
#define QELCORE_QCE_NET_CNETIPV4ADDRESS_H

#include "qelcore/qce/net++/cnetabstractipv4address.h"
#include "qelcore/qelexport.h"

namespace qce {

class QEL_EXPORT cNetIPv4Address : public cNetAbstractIPv4Address {
public:
  /// 0.0.0.0, port 0.
  cNetIPv4Address() : miValue(0), miPort(0) {}
  /// `value` holds the first part of the address in its lowest byte.
  cNetIPv4Address(unsigned int value, unsigned int port) : miValue(value), miPort(port & 0xFFFF) {}
  ~cNetIPv4Address() override;

  /// Keeps the low 16 bits of `port`.
  void setAddress(unsigned int value, unsigned int port) override;
  void getAddress(unsigned int& value, unsigned int& port) const override;
  unsigned int port() const override { return miPort; }
  /// The address value, first part in the lowest byte.
  unsigned int value() const { return miValue; }

  cNetAbstractAddress* clone() const override;
  bool equals(const cNetAbstractAddress& other) const override;
  unsigned int toSockAddr(void* buffer, unsigned int size) const override;
  bool fromSockAddr(const void* sockAddr, unsigned int size) override;

private:
  unsigned int miValue;
  unsigned int miPort;
};

}  // namespace qce

#endif
