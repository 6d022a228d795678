/// \class qce::cNetAbstractAddressExtension
/// The base of network-address extensions: address types created by type name
/// through cCoreExtensionMgr::createNetAddress ("TcpIpv4", "TcpIpv6", ...).
#ifndef QELCORE_QCE_NET_CNETABSTRACTADDRESSEXTENSION_H
#define QELCORE_QCE_NET_CNETABSTRACTADDRESSEXTENSION_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qce {

class cNetAbstractAddress;

class QEL_EXPORT cNetAbstractAddressExtension : public cAbstractCoreExtension {
public:
  ~cNetAbstractAddressExtension() override;

  ExtensionType extensionType() const override { return eNetAddress; }
  /// A new address of the type name, one that supports() accepts.
  virtual qstd::tAutoPtr<cNetAbstractAddress> createNetAddress(const qstd::cAsciiString& typeName) const = 0;
};

}  // namespace qce

#endif
