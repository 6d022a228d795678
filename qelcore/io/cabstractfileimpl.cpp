#include "qelcore/io/cabstractfileimpl.h"

namespace qio {

cAbstractFileImpl::cAbstractFileImpl(const cPath& path) : mPath(path) {}

cAbstractFileImpl::~cAbstractFileImpl() {}

}  // namespace qio
