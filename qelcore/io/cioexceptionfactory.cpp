#include "qelcore/io/cioexceptionfactory.h"

#include "qelcore/io/cioexception.h"
#include "qelcore/std/casciistring.h"

namespace qio {

qstd::cAbstractException* cIOExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  if (typeName == "cIOException") return new cIOException();
  return nullptr;
}

}  // namespace qio
