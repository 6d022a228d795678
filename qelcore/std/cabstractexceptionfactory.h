/// \class qstd::cAbstractExceptionFactory
/// Creates empty exception objects from their type names, so that an
/// exception read from an archive can be rebuilt as its own class. Every
/// subsystem that defines exceptions has a factory that knows its classes.
#ifndef QELCORE_STD_CABSTRACTEXCEPTIONFACTORY_H
#define QELCORE_STD_CABSTRACTEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"

namespace qstd {

class cAbstractException;
class cAsciiString;

class QEL_EXPORT cAbstractExceptionFactory {
public:
  virtual ~cAbstractExceptionFactory();
  /// A new default-constructed exception of that class (owned by the
  /// caller), or null when the name is unknown to this factory.
  virtual cAbstractException* createException(const cAsciiString& typeName) const = 0;
};

}  // namespace qstd

#endif
