/// \class qce::cGenericExtension
/// An extension that creates nothing: it only makes a plug-in count as an
/// extension provider (see qce::cGenericPlugIn). supports() is always false,
/// so a look-up by type name never picks it, not even for its own name.
#ifndef QELCORE_QCE_CGENERICEXTENSION_H
#define QELCORE_QCE_CGENERICEXTENSION_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbuildinfo.h"

namespace qce {

class QEL_EXPORT cGenericExtension : public cAbstractCoreExtension {
public:
  /// The name is the description; the build information is left unknown.
  cGenericExtension(const qstd::cAsciiString& name, ExtensionType type);
  ~cGenericExtension() override;

  /// The type given to the constructor.
  ExtensionType extensionType() const override { return meType; }
  /// The name given to the constructor.
  qstd::cAsciiString description() override { return msName; }
  /// Unknown build information.
  const qstd::cBuildInfo& buildInfo() const override { return mBuildInfo; }
  /// Always false: a generic extension makes nothing.
  bool supports(const qstd::cAsciiString&) const override { return false; }

private:
  qstd::cAsciiString msName;
  ExtensionType meType;
  qstd::cBuildInfo mBuildInfo;
};

}  // namespace qce

#endif
