#include "qelcore/std/cstdexceptionfactory.h"

#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctextparseexception.h"
#include "qelcore/std/ctypeerrorexception.h"
#include "qelcore/std/ctypemissmatchexception.h"

namespace qstd {

cSTDExceptionFactory::~cSTDExceptionFactory() {}

cAbstractException* cSTDExceptionFactory::createException(const cAsciiString& typeName) const {
  return createExceptionNamed<cBugException, cRuntimeException, cOutOfBoundsException, cOutOfRangeException,
                              cOSErrorException, cTextParseException, cTypeErrorException, cTypeMissmatchException,
                              cNumberConversionException>(typeName);
}

}  // namespace qstd
