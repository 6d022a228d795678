#include "qelcore/pi/cpiexceptionfactory.h"

#include "qelcore/pi/cunsupportedplatformexception.h"
#include "qelcore/std/casciistring.h"

namespace qpi {

qstd::cAbstractException* cPIExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  if (typeName == "cUnsupportedPlatformException") return new cUnsupportedPlatformException();
  return nullptr;
}

}  // namespace qpi
