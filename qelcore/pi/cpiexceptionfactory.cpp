#include "qelcore/pi/cpiexceptionfactory.h"

#include "qelcore/pi/cunsupportedplatformexception.h"

namespace qpi {

qstd::cAbstractException* cPIExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  return qstd::createExceptionNamed<cUnsupportedPlatformException>(typeName);
}

}  // namespace qpi
