/// \class qpi::cPIExceptionFactory
/// Rebuilds the exceptions of the platform interface from their type names.
#ifndef QELCORE_PI_CPIEXCEPTIONFACTORY_H
#define QELCORE_PI_CPIEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qpi {

class QEL_EXPORT cPIExceptionFactory : public qstd::cAbstractExceptionFactory {
public:
  /// A new exception of the platform layer's type name, or null.
  qstd::cAbstractException* createException(const qstd::cAsciiString& typeName) const override;
};

}  // namespace qpi

#endif
