#include "qelcore/io/cabstractwatchimpl.h"

namespace qio {

cAbstractWatchImpl::~cAbstractWatchImpl() {}

}  // namespace qio
