#include "qelcore/rmi/ccallparametermissmatchexception.h"

namespace qrmi {

cCallParameterMissmatchException::cCallParameterMissmatchException() {}

cCallParameterMissmatchException::cCallParameterMissmatchException(const qucs::cLIMessage& msg,
                                                                   const qstd::cAsciiString& slotName, const char* file,
                                                                   unsigned int line)
    : qstd::cBugException(msg, file, line), msSlot(slotName) {}

cCallParameterMissmatchException::cCallParameterMissmatchException(const cCallParameterMissmatchException& other)
    : qstd::cBugException(other), msSlot(other.msSlot) {}

cCallParameterMissmatchException& cCallParameterMissmatchException::operator=(
    const cCallParameterMissmatchException& other) {
  if (this != &other) {
    cCallParameterMissmatchException copy(other);
    swap(copy);
  }
  return *this;
}

cCallParameterMissmatchException::~cCallParameterMissmatchException() {}

void cCallParameterMissmatchException::swap(cCallParameterMissmatchException& other) {
  qstd::cBugException::swap(other);
  msSlot.swap(other.msSlot);
}

qstd::cAbstractException* cCallParameterMissmatchException::createObject() const {
  return new cCallParameterMissmatchException;
}

qstd::cAbstractException* cCallParameterMissmatchException::clone() const {
  return new cCallParameterMissmatchException(*this);
}

qstd::cAsciiString cCallParameterMissmatchException::typeName() const {
  return qstd::cAsciiString("cCallParameterMissmatchException");
}

}  // namespace qrmi
