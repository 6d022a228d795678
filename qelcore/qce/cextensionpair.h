/// \class qce::cExtensionPair
/// One entry of the core extension manager's list. It owns either an
/// extension added directly, or the plug-in module that provides the extension
/// (with the module file: the plug-in is destroyed before its class loader).
/// Copying hands ownership over to the copy.
#ifndef QELCORE_QCE_CEXTENSIONPAIR_H
#define QELCORE_QCE_CEXTENSIONPAIR_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qcs {
class cAbstractPlugIn;
class cPlugInGuard;
}  // namespace qcs

namespace qce {

class QEL_EXPORT cExtensionPair {
public:
  /// Owns `extension`.
  explicit cExtensionPair(qstd::tAutoPtr<cAbstractCoreExtension> extension);
  /// The plug-in's coreExtension(); a plug-in without one is unloaded and its
  /// exception passed on.
  explicit cExtensionPair(qstd::tAutoPtr<qcs::cAbstractPlugIn> plugIn);
  /// The plug-in of the guard, which the pair takes over.
  explicit cExtensionPair(qstd::tAutoPtr<qcs::cPlugInGuard> plugIn);
  /// Takes over what `other` owns.
  cExtensionPair(cExtensionPair& other);
  cExtensionPair& operator=(const cExtensionPair&) = delete;
  ~cExtensionPair();

  /// The extension, whoever provides it.
  cAbstractCoreExtension& extension() const { return *mpExtension; }
  /// The providing plug-in; null for an extension added directly.
  qcs::cAbstractPlugIn* plugIn() const;

private:
  cAbstractCoreExtension* mpExtension;
  qstd::tAutoPtr<cAbstractCoreExtension> mOwnedExtension;
  qstd::tAutoPtr<qcs::cPlugInGuard> mPlugIn;
};

}  // namespace qce

#endif
