/// \class qstd::cSTDExceptionFactory
/// The factory of the foundation's exception classes.
#ifndef QELCORE_STD_CSTDEXCEPTIONFACTORY_H
#define QELCORE_STD_CSTDEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qstd {

class QEL_EXPORT cSTDExceptionFactory : public cAbstractExceptionFactory {
public:
  ~cSTDExceptionFactory() override;
  /// Knows cBugException, cRuntimeException and every exception class of
  /// the foundation derived from them.
  cAbstractException* createException(const cAsciiString& typeName) const override;
};

}  // namespace qstd

#endif
