#include "qelcore/qce/cextensionpair.h"

#include "qelcore/std/cstdexceptions.h"

namespace qce {

cExtensionPair::cExtensionPair(qstd::tAutoPtr<cAbstractCoreExtension> extension)
    : mpExtension(extension.get()), mOwnedExtension(extension) {
  QEL_ASSERT(mpExtension != 0, "qce/cextensionpair");
}

cExtensionPair::cExtensionPair(cExtensionPair& other)
    : mpExtension(other.mpExtension), mOwnedExtension(other.mOwnedExtension) {}

cExtensionPair::~cExtensionPair() {}

}  // namespace qce
