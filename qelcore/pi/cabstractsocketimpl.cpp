#include "qelcore/pi/cabstractsocketimpl.h"

namespace qpi {

cAbstractSocketImpl::~cAbstractSocketImpl() {}

}  // namespace qpi
