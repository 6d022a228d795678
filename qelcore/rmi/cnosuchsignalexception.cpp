#include "qelcore/rmi/cnosuchsignalexception.h"

namespace qrmi {

cNoSuchSignalException::cNoSuchSignalException() {}

cNoSuchSignalException::cNoSuchSignalException(const qucs::cLIMessage& msg, const qstd::cAsciiString& signalName,
                                               const char* file, unsigned int line)
    : qstd::cRuntimeException(msg, file, line), msSignal(signalName) {}

cNoSuchSignalException::cNoSuchSignalException(const cNoSuchSignalException& other)
    : qstd::cRuntimeException(other), msSignal(other.msSignal) {}

cNoSuchSignalException& cNoSuchSignalException::operator=(const cNoSuchSignalException& other) {
  if (this != &other) {
    cNoSuchSignalException copy(other);
    swap(copy);
  }
  return *this;
}

cNoSuchSignalException::~cNoSuchSignalException() {}

void cNoSuchSignalException::swap(cNoSuchSignalException& other) {
  qstd::cRuntimeException::swap(other);
  msSignal.swap(other.msSignal);
}

qstd::cAbstractException* cNoSuchSignalException::createObject() const { return new cNoSuchSignalException; }

qstd::cAbstractException* cNoSuchSignalException::clone() const { return new cNoSuchSignalException(*this); }

qstd::cAsciiString cNoSuchSignalException::typeName() const { return qstd::cAsciiString("cNoSuchSignalException"); }

}  // namespace qrmi
