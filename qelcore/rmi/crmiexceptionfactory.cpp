#include "qelcore/rmi/crmiexceptionfactory.h"

#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"

namespace qrmi {

qstd::cAbstractException* cRMIExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  return qstd::createExceptionNamed<cUnconnectedSignalException, cNoSuchSlotException, cNoSuchSignalException,
                                    cCallParameterMissmatchException>(typeName);
}

}  // namespace qrmi
