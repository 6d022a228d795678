#include "qelcore/qce/cextensionpair.h"

#include "qelcore/qcs/cpluginguard.h"
#include "qelcore/std/cstdexceptions.h"

namespace qce {

cExtensionPair::cExtensionPair(qstd::tAutoPtr<cAbstractCoreExtension> extension)
    : mpExtension(extension.get()), mOwnedExtension(extension) {
  QEL_ASSERT(mpExtension != 0, "qce/cextensionpair");
}

cExtensionPair::cExtensionPair(qstd::tAutoPtr<qcs::cAbstractPlugIn> plugIn)
    : cExtensionPair(qstd::tAutoPtr<qcs::cPlugInGuard>(new qcs::cPlugInGuard(plugIn))) {}

cExtensionPair::cExtensionPair(qstd::tAutoPtr<qcs::cPlugInGuard> plugIn) : mpExtension(nullptr), mPlugIn(plugIn) {
  QEL_ASSERT(mPlugIn.get() != nullptr, "qce/cextensionpair");
  // The plug-in hands out a const extension; the pair gives its users the
  // same access as to an extension it owns.
  mpExtension = const_cast<cAbstractCoreExtension*>(&mPlugIn->plugIn().coreExtension());
}

cExtensionPair::cExtensionPair(cExtensionPair& other)
    : mpExtension(other.mpExtension), mOwnedExtension(other.mOwnedExtension), mPlugIn(other.mPlugIn) {}

cExtensionPair::~cExtensionPair() {}

qcs::cAbstractPlugIn* cExtensionPair::plugIn() const { return mPlugIn ? &mPlugIn->plugIn() : nullptr; }

}  // namespace qce
