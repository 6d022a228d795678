/// \class qpi::cUnsupportedPlatformException
/// An operation that this platform cannot provide:
/// "Operation ("%operation%") not supported for this platform!".
#ifndef QELCORE_PI_CUNSUPPORTEDPLATFORMEXCEPTION_H
#define QELCORE_PI_CUNSUPPORTEDPLATFORMEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cbugexception.h"

namespace qpi {

class QEL_EXPORT cUnsupportedPlatformException
    : public qstd::tException<cUnsupportedPlatformException, qstd::cBugException> {
public:
  /// "cUnsupportedPlatformException", the name in the exception registry.
  static const char* staticTypeName() { return "cUnsupportedPlatformException"; }

  cUnsupportedPlatformException() {}
  /// "Operation ("%operation%") not supported for this platform!", raised at `file`:`line`.
  cUnsupportedPlatformException(const char* operation, const char* file, unsigned int line);
};

}  // namespace qpi

#endif
