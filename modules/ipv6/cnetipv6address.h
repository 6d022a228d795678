// An IPv6 address with a port: the type "TcpIpv6" of the IPv6 module.
//
// Text form: eight groups of up to four hex digits separated by ":", one run
// of zero groups may be written "::", the last two groups may be written as
// an IPv4 address ("::ffff:10.0.0.1"); with a port the address goes in
// brackets: "[2001:db8::1]:443". Printing gives the standard form: lower case,
// no leading zeros, the longest run of two or more zero groups (the first of
// equal runs) as "::", IPv4-mapped addresses with the IPv4 tail.
//
// Malformed text throws a runtime exception "Malformed IPv6 address
// ("%address%")!", a bad port the IPv4 address's port messages; the object
// is then unchanged.
#ifndef QELCORE_MODULES_IPV6_CNETIPV6ADDRESS_H
#define QELCORE_MODULES_IPV6_CNETIPV6ADDRESS_H

#include "qelcore/qce/net++/cnetabstractipaddress.h"

namespace qce {

class cNetIPv6Address : public cNetAbstractIPAddress {
public:
  cNetIPv6Address();
  // `bytes`: the 16 bytes in network order.
  cNetIPv6Address(const unsigned char* bytes, unsigned int port);
  ~cNetIPv6Address() override;

  // "TcpIpv6".
  qstd::cAsciiString addrType() const override;
  cNetAbstractAddress& fromString(const qstd::cAsciiString& text) override;
  // WithPort: "[address]:port".
  qstd::cAsciiString toString(int flags) const override;
  cNetAbstractAddress* clone() const override;
  bool equals(const cNetAbstractAddress& other) const override;
  unsigned int toSockAddr(void* buffer, unsigned int size) const override;
  bool fromSockAddr(const void* sockAddr, unsigned int size) override;

  void setAddress(const unsigned char* bytes, unsigned int port);
  const unsigned char* bytes() const { return maBytes; }
  unsigned int port() const { return miPort; }

private:
  unsigned char maBytes[16];
  unsigned int miPort;
};

}  // namespace qce

#endif
