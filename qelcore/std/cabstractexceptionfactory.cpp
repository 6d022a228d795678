#include "qelcore/std/cabstractexceptionfactory.h"

namespace qstd {

cAbstractExceptionFactory::~cAbstractExceptionFactory() {}

}  // namespace qstd
