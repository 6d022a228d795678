#include "qelcore/sa/csaexceptionfactory.h"

#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/std/casciistring.h"

namespace qsa {

qstd::cAbstractException* cSAExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  if (typeName == "cLabeledTypeMissmatchException") return new cLabeledTypeMissmatchException();
  return 0;
}

}  // namespace qsa
