#include "qelcore/pi/cabstractmuteximpl.h"

namespace qpi {

cAbstractMutexImpl::~cAbstractMutexImpl() {}

}  // namespace qpi
