#include "qelcore/std/coserrorexception.h"

#include <utility>

namespace qstd {

cOSErrorException::cOSErrorException() : miOsErrorCode(0) {}

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode)
    : mOperation(operation), miOsErrorCode(osErrorCode) {
  setMsg(qucs::cLIMessage("$QTR$OS-Error while trying operation \"%operation%\"!") << operation);
}

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& file)
    : mOperation(operation), miOsErrorCode(osErrorCode), mFileName(file) {
  setMsg(qucs::cLIMessage("$QTR$OS-Error while trying operation \"%operation%\" on file \"%file%\"!")
         << operation << file);
}

cOSErrorException::cOSErrorException(const cOSErrorException& other)
    : cRuntimeException(other),
      mOperation(other.mOperation),
      miOsErrorCode(other.miOsErrorCode),
      mFileName(other.mFileName) {}

cOSErrorException& cOSErrorException::operator=(const cOSErrorException& other) {
  if (this != &other) {
    cOSErrorException copy(other);
    swap(copy);
  }
  return *this;
}

cOSErrorException::~cOSErrorException() {}

void cOSErrorException::swap(cOSErrorException& other) {
  cRuntimeException::swap(other);
  mOperation.swap(other.mOperation);
  std::swap(miOsErrorCode, other.miOsErrorCode);
  mFileName.swap(other.mFileName);
}

cAbstractException* cOSErrorException::createObject() const { return new cOSErrorException; }
cAbstractException* cOSErrorException::clone() const { return new cOSErrorException(*this); }
cAsciiString cOSErrorException::typeName() const { return cAsciiString("cOSErrorException"); }

}  // namespace qstd
