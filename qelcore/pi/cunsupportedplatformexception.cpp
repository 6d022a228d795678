#include "qelcore/pi/cunsupportedplatformexception.h"

#include "qelcore/std/casciistring.h"

namespace qpi {

cUnsupportedPlatformException::cUnsupportedPlatformException() {}

cUnsupportedPlatformException::cUnsupportedPlatformException(const char* operation, const char* file, unsigned int line)
    : qstd::cBugException(qucs::cLIMessage("$QTR$Operation (\"%operation%\") not supported for this platform!")
                              << (operation ? operation : "unknown"),
                          file, line) {}

cUnsupportedPlatformException::cUnsupportedPlatformException(const cUnsupportedPlatformException& other)
    : qstd::cBugException(other) {}

cUnsupportedPlatformException& cUnsupportedPlatformException::operator=(const cUnsupportedPlatformException& other) {
  if (this != &other) {
    cUnsupportedPlatformException copy(other);
    swap(copy);
  }
  return *this;
}

cUnsupportedPlatformException::~cUnsupportedPlatformException() {}

void cUnsupportedPlatformException::swap(cUnsupportedPlatformException& other) { qstd::cBugException::swap(other); }

qstd::cAbstractException* cUnsupportedPlatformException::createObject() const {
  return new cUnsupportedPlatformException;
}

qstd::cAbstractException* cUnsupportedPlatformException::clone() const {
  return new cUnsupportedPlatformException(*this);
}

qstd::cAsciiString cUnsupportedPlatformException::typeName() const {
  return qstd::cAsciiString("cUnsupportedPlatformException");
}

}  // namespace qpi
