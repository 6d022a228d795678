/// \class qce::cNetAbstractIPv4Address
/// An IPv4 address with a port and its text form "a.b.c.d" or "a.b.c.d:port".
///
/// The address is one 32-bit value holding the first part in bits 0-7, the
/// second in bits 8-15 and so on: the memory layout of the address in network
/// byte order on a little-endian machine. Concrete classes store value and
/// port (qce::cNetIPv4Address).
///
/// Parsing splits at "." (empty parts are skipped) and reads four decimal
/// parts, then, after a ":", a decimal port; whatever follows the fourth part
/// without a colon is ignored ("1.2.3.4.5" is 1.2.3.4). Errors are runtime
/// exceptions: "Expecting an unsigned decimal number!", "IP number part
/// (%number%) is not in range of 0..255!", "Expecting port number!", "Given
/// port number (%number%) is not in range of 0..65535", or the number
/// conversion's own for other characters; the object is then unchanged.
#ifndef QELCORE_QCE_NET_CNETABSTRACTIPV4ADDRESS_H
#define QELCORE_QCE_NET_CNETABSTRACTIPV4ADDRESS_H

#include "qelcore/qce/net++/cnetabstractipaddress.h"
#include "qelcore/qelexport.h"

namespace qce {

class QEL_EXPORT cNetAbstractIPv4Address : public cNetAbstractIPAddress {
public:
  ~cNetAbstractIPv4Address() override;

  /// "TcpIpv4".
  qstd::cAsciiString addrType() const override;
  cNetAbstractAddress& fromString(const qstd::cAsciiString& text) override;
  /// Bit 0 of `flags` (WithPort) appends ":port".
  qstd::cAsciiString toString(int flags) const override;

  /// Sets the address value (first part in the lowest byte) and the port.
  virtual void setAddress(unsigned int value, unsigned int port) = 0;
  /// Reads the address value and the port.
  virtual void getAddress(unsigned int& value, unsigned int& port) const = 0;
  /// The port, 0..65535.
  virtual unsigned int port() const = 0;
};

}  // namespace qce

#endif
