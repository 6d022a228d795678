#include "qelcore/io/cioexceptionfactory.h"

#include "qelcore/io/cioexception.h"
#include "qelcore/std/texception.h"

namespace qio {

qstd::cAbstractException* cIOExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  return qstd::createExceptionNamed<cIOException>(typeName);
}

}  // namespace qio
