#include "qelcore/qce/ccoreextensionmgr.h"

namespace qce {

cCoreExtensionMgr::cCoreExtensionMgr() {}

cCoreExtensionMgr::~cCoreExtensionMgr() {}

void cCoreExtensionMgr::add(qstd::tAutoPtr<cAbstractCoreExtension> extension) {
  mExtensions.append(new cExtensionPair(extension));
}

}  // namespace qce
