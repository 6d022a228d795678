/// \class qce::cNetAbstractIPAddress
/// The base of IP addresses (IPv4, IPv6); cNetAbstractAddress::ipAddress()
/// finds it.
#ifndef QELCORE_QCE_NET_CNETABSTRACTIPADDRESS_H
#define QELCORE_QCE_NET_CNETABSTRACTIPADDRESS_H

#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qelexport.h"

namespace qce {

class QEL_EXPORT cNetAbstractIPAddress : public cNetAbstractAddress {
public:
  ~cNetAbstractIPAddress() override;

  ///@{
  /// This object.
  cNetAbstractIPAddress* isIPAddress() override { return this; }
  const cNetAbstractIPAddress* isIPAddress() const override { return this; }
  ///@}
};

}  // namespace qce

#endif
