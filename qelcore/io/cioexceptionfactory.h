/// \class qio::cIOExceptionFactory
/// Rebuilds the exceptions of the file system layer from their type names.
#ifndef QELCORE_IO_CIOEXCEPTIONFACTORY_H
#define QELCORE_IO_CIOEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qio {

class QEL_EXPORT cIOExceptionFactory : public qstd::cAbstractExceptionFactory {
public:
  /// A new exception of the file layer's type name, or null.
  qstd::cAbstractException* createException(const qstd::cAsciiString& typeName) const override;
};

}  // namespace qio

#endif
