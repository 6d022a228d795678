/// \class qrmi::cRMIExceptionFactory
/// Rebuilds the exceptions of the signal and slot subsystem from their type
/// names.
#ifndef QELCORE_RMI_CRMIEXCEPTIONFACTORY_H
#define QELCORE_RMI_CRMIEXCEPTIONFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexceptionfactory.h"

namespace qrmi {

class QEL_EXPORT cRMIExceptionFactory : public qstd::cAbstractExceptionFactory {
public:
  /// A new exception of the signal-and-slot layer's type name, or null.
  qstd::cAbstractException* createException(const qstd::cAsciiString& typeName) const override;
};

}  // namespace qrmi

#endif
