#include "qelcore/sa/csaexceptionfactory.h"

#include "qelcore/sa/clabeledtypemissmatchexception.h"

namespace qsa {

qstd::cAbstractException* cSAExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  return qstd::createExceptionNamed<cLabeledTypeMissmatchException>(typeName);
}

}  // namespace qsa
