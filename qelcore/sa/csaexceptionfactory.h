/// \class qsa::cSAExceptionFactory
/// Rebuilds the exceptions of the archive subsystem from their type names.
#ifndef QELCORE_SA_CSAEXCEPTIONFACTORY_H
#define QELCORE_SA_CSAEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qsa {

class QEL_EXPORT cSAExceptionFactory : public qstd::cAbstractExceptionFactory {
public:
  /// A new exception of the archives' type name, or null.
  qstd::cAbstractException* createException(const qstd::cAsciiString& typeName) const override;
};

}  // namespace qsa

#endif
