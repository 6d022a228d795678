#include "qelcore/rmi/crmiexceptionfactory.h"

#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/std/casciistring.h"

namespace qrmi {

qstd::cAbstractException* cRMIExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  if (typeName == "cUnconnectedSignalException") return new cUnconnectedSignalException();
  if (typeName == "cNoSuchSlotException") return new cNoSuchSlotException();
  if (typeName == "cNoSuchSignalException") return new cNoSuchSignalException();
  if (typeName == "cCallParameterMissmatchException") return new cCallParameterMissmatchException();
  return nullptr;
}

}  // namespace qrmi
