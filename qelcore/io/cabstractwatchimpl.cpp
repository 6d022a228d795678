#include "qelcore/io/cabstractwatchimpl.h"

namespace qio {

cAbstractWatchImpl::cSink::~cSink() {}

cAbstractWatchImpl::~cAbstractWatchImpl() {}

int cAbstractWatchImpl::descriptor() const { return -1; }

}  // namespace qio
