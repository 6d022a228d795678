#include "qelcore/pi/cabstractrunnableimpl.h"

namespace qpi {

cAbstractRunnableImpl::~cAbstractRunnableImpl() {}

}  // namespace qpi
