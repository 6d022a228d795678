// One entry of the core extension manager's list: it owns an extension that
// was added directly. (Entries that own the plug-in module providing the
// extension come with the module support.)
#ifndef QELCORE_QCE_CEXTENSIONPAIR_H
#define QELCORE_QCE_CEXTENSIONPAIR_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qce {

class QEL_EXPORT cExtensionPair {
public:
  explicit cExtensionPair(qstd::tAutoPtr<cAbstractCoreExtension> extension);
  // Takes over what `other` owns.
  cExtensionPair(cExtensionPair& other);
  cExtensionPair& operator=(const cExtensionPair&) = delete;
  ~cExtensionPair();

  cAbstractCoreExtension& extension() const { return *mpExtension; }

private:
  cAbstractCoreExtension* mpExtension;
  qstd::tAutoPtr<cAbstractCoreExtension> mOwnedExtension;
};

}  // namespace qce

#endif
