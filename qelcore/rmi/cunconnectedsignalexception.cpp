#include "qelcore/rmi/cunconnectedsignalexception.h"

namespace qrmi {

cUnconnectedSignalException::cUnconnectedSignalException() {}

cUnconnectedSignalException::cUnconnectedSignalException(const qucs::cLIMessage& msg, const char* file,
                                                         unsigned int line)
    : qstd::cRuntimeException(msg, file, line) {}

cUnconnectedSignalException::cUnconnectedSignalException(const cUnconnectedSignalException& other)
    : qstd::cRuntimeException(other) {}

cUnconnectedSignalException& cUnconnectedSignalException::operator=(const cUnconnectedSignalException& other) {
  if (this != &other) {
    cUnconnectedSignalException copy(other);
    swap(copy);
  }
  return *this;
}

cUnconnectedSignalException::~cUnconnectedSignalException() {}

void cUnconnectedSignalException::swap(cUnconnectedSignalException& other) { qstd::cRuntimeException::swap(other); }

qstd::cAbstractException* cUnconnectedSignalException::createObject() const { return new cUnconnectedSignalException; }

qstd::cAbstractException* cUnconnectedSignalException::clone() const { return new cUnconnectedSignalException(*this); }

qstd::cAsciiString cUnconnectedSignalException::typeName() const {
  return qstd::cAsciiString("cUnconnectedSignalException");
}

}  // namespace qrmi
