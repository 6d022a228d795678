#include "qelcore/rmi/cnosuchslotexception.h"

namespace qrmi {

cNoSuchSlotException::cNoSuchSlotException() {}

cNoSuchSlotException::cNoSuchSlotException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName,
                                           const qstd::cAsciiString& slotArgs, const char* file, unsigned int line)
    : qstd::cRuntimeException(msg, file, line), msSlot(slotName), msArgs(slotArgs) {}

cNoSuchSlotException::cNoSuchSlotException(const cNoSuchSlotException& other)
    : qstd::cRuntimeException(other), msSlot(other.msSlot), msArgs(other.msArgs) {}

cNoSuchSlotException& cNoSuchSlotException::operator=(const cNoSuchSlotException& other) {
  if (this != &other) {
    cNoSuchSlotException copy(other);
    swap(copy);
  }
  return *this;
}

cNoSuchSlotException::~cNoSuchSlotException() {}

void cNoSuchSlotException::swap(cNoSuchSlotException& other) {
  qstd::cRuntimeException::swap(other);
  msSlot.swap(other.msSlot);
  msArgs.swap(other.msArgs);
}

qstd::cAbstractException* cNoSuchSlotException::createObject() const { return new cNoSuchSlotException; }

qstd::cAbstractException* cNoSuchSlotException::clone() const { return new cNoSuchSlotException(*this); }

qstd::cAsciiString cNoSuchSlotException::typeName() const { return qstd::cAsciiString("cNoSuchSlotException"); }

}  // namespace qrmi
