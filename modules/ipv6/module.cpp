// The IPv6 module: a plug-in whose core extension makes "TcpIpv6" addresses.
// Installed to lib/qelcore/modules and loaded by name:
//
//   qpi::system().coreExtensions().load(qstd::cAsciiString("qelipv6"), frame);
#include "cnetipv6address.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmodulesections.h"
#include "qelcore/qce/net++/cnetabstractaddressextension.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/tvector.h"

namespace {

class cIPv6Extension : public qce::cNetAbstractAddressExtension {
public:
  qstd::cAsciiString description() override { return "IPv6 addresses"; }
  const qstd::cBuildInfo& buildInfo() const override { return mBuildInfo; }
  bool supports(const qstd::cAsciiString& typeName) const override { return typeName == "TcpIpv6"; }
  void provides(qstd::tVector<qstd::cAsciiString>& names) const override { names.append("TcpIpv6"); }
  qstd::tAutoPtr<qce::cNetAbstractAddress> createNetAddress(const qstd::cAsciiString&) const override {
    return qstd::tAutoPtr<qce::cNetAbstractAddress>(new qce::cNetIPv6Address);
  }

private:
  qstd::cBuildInfo mBuildInfo;
};

class cIPv6PlugIn : public qcs::cAbstractPlugIn {
public:
  explicit cIPv6PlugIn(qsa::cReferenceFrame& frame) : cAbstractPlugIn(frame) {
    moduleInfo().setName("qelipv6");
    moduleInfo().setDescription("IPv6 addresses (TcpIpv6)");
  }
  bool isCoreExtension() const override { return true; }
  const qce::cAbstractCoreExtension& coreExtension() const override { return mExtension; }
  qstd::cAsciiString pluginTypeName() override { return "address"; }

private:
  cIPv6Extension mExtension;
};

}  // namespace

QEL_MODULE_VERSION(1, 0)
QEL_MODULE_PLUGIN(cIPv6PlugIn)
