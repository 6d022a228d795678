/// \class qcs::cNoPublicInterfaceException
/// An object was asked for as a component's interface, but no component of the
/// manager lists it.
#ifndef QELCORE_QCS_CNOPUBLICINTERFACEEXCEPTION_H
#define QELCORE_QCS_CNOPUBLICINTERFACEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"

namespace qcs {

class QEL_EXPORT cNoPublicInterfaceException
    : public qstd::tException<cNoPublicInterfaceException, qstd::cRuntimeException> {
public:
  /// "cNoPublicInterfaceException", the name in the exception registry.
  static const char* staticTypeName() { return "cNoPublicInterfaceException"; }

  cNoPublicInterfaceException() {}
  /// "No public interface!".
  cNoPublicInterfaceException(const char* file, unsigned int line);
};

}  // namespace qcs

#endif
