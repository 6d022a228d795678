#include "qelcore/qcs/cqcsexceptionfactory.h"

#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/qcs/cnopublicinterfaceexception.h"
#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/qcs/cunmatchedinterfaceexception.h"

namespace qcs {

qstd::cAbstractException* cQCSExceptionFactory::createException(const qstd::cAsciiString& typeName) const {
  return qstd::createExceptionNamed<cNoSuchModuleException, cNoPublicInterfaceException, cUnmatchedInterfaceException,
                                    cModuleLoadException, cRMIException>(typeName);
}

}  // namespace qcs
