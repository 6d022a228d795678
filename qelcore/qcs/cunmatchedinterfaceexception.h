/// \class qcs::cUnmatchedInterfaceException
/// A dependency was asked for its match while it has no valid one.
#ifndef QELCORE_QCS_CUNMATCHEDINTERFACEEXCEPTION_H
#define QELCORE_QCS_CUNMATCHEDINTERFACEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"

namespace qcs {

class QEL_EXPORT cUnmatchedInterfaceException
    : public qstd::tException<cUnmatchedInterfaceException, qstd::cRuntimeException> {
public:
  /// "cUnmatchedInterfaceException", the name in the exception registry.
  static const char* staticTypeName() { return "cUnmatchedInterfaceException"; }

  cUnmatchedInterfaceException() {}
  /// "Unmatched interface!".
  cUnmatchedInterfaceException(const char* file, unsigned int line);
};

}  // namespace qcs

#endif
