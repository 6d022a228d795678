/// \class qce::cGenericPlugIn
/// A prepared plug-in for modules that only need to be loaded and kept: it
/// carries a generic extension of the encoder kind under its name, so the
/// core extension manager lists it, but it never creates objects.
///
/// \code
///   class cHooks : public qce::cGenericPlugIn {
///   public:
///     explicit cHooks(qsa::cReferenceFrame& frame) : cGenericPlugIn(frame, "hooks") { installHooks(); }
///   };
///   QEL_MODULE_VERSION(1, 0)
///   QEL_MODULE_PLUGIN(cHooks)
/// \endcode
#ifndef QELCORE_QCE_CGENERICPLUGIN_H
#define QELCORE_QCE_CGENERICPLUGIN_H

#include "qelcore/qce/cgenericextension.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qelexport.h"

namespace qce {

class QEL_EXPORT cGenericPlugIn : public qcs::cAbstractPlugIn {
public:
  /// A plug-in named `name` with a generic encoder/decoder extension of that name.
  cGenericPlugIn(qsa::cReferenceFrame& frame, const qstd::cAsciiString& name);
  ~cGenericPlugIn() override;

  /// True.
  bool isCoreExtension() const override { return true; }
  /// The generic extension.
  const cAbstractCoreExtension& coreExtension() const override { return mExtension; }

private:
  cGenericExtension mExtension;
};

}  // namespace qce

#endif
