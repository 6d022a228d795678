#include "qelcore/qp/clocker.h"

#include "qelcore/pi/cplatform.h"

namespace qp {

cLocker::cLocker() : mpMutex(qpi::cPlatform::createMutexImpl()) {}

cLocker::~cLocker() {}

}  // namespace qp
