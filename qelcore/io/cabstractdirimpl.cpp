#include "qelcore/io/cabstractdirimpl.h"

namespace qio {

cAbstractDirImpl::~cAbstractDirImpl() {}

}  // namespace qio
