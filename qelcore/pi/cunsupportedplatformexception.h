// An operation that this platform cannot provide:
// "Operation ("%operation%") not supported for this platform!".
#ifndef QELCORE_PI_CUNSUPPORTEDPLATFORMEXCEPTION_H
#define QELCORE_PI_CUNSUPPORTEDPLATFORMEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cbugexception.h"

namespace qpi {

class QEL_EXPORT cUnsupportedPlatformException : public qstd::cBugException {
public:
  cUnsupportedPlatformException();
  cUnsupportedPlatformException(const char* operation, const char* file, unsigned int line);
  cUnsupportedPlatformException(const cUnsupportedPlatformException& other);
  cUnsupportedPlatformException& operator=(const cUnsupportedPlatformException& other);
  ~cUnsupportedPlatformException() override;
  void swap(cUnsupportedPlatformException& other);

  qstd::cAbstractException* createObject() const override;
  qstd::cAbstractException* clone() const override;
  qstd::cAsciiString typeName() const override;
};

}  // namespace qpi

#endif
