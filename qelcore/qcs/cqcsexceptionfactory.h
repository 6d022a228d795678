/// \class qcs::cQCSExceptionFactory
/// Rebuilds the exceptions of the component system from their type names.
#ifndef QELCORE_QCS_CQCSEXCEPTIONFACTORY_H
#define QELCORE_QCS_CQCSEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qcs {

class QEL_EXPORT cQCSExceptionFactory : public qstd::cAbstractExceptionFactory {
public:
  /// cNoSuchModuleException, cNoPublicInterfaceException,
  /// cUnmatchedInterfaceException, cModuleLoadException, cRMIException.
  qstd::cAbstractException* createException(const qstd::cAsciiString& typeName) const override;
};

}  // namespace qcs

#endif
