#include "qelcore/qcs/crmiexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qcs {

namespace {

// The text for the operation, filled with the name and the interface's index
// or key; empty for an operation that does not exist.
qucs::cLIMessage describe(cRMIException::Operation operation, const char* callText, const char* connectText,
                          const qstd::cAsciiString& name, unsigned int which) {
  if (operation == cRMIException::eCallSlot) return qucs::cLIMessage(callText) << name << which;
  if (operation == cRMIException::eConnectSignal) return qucs::cLIMessage(connectText) << name << which;
  return qucs::cLIMessage();
}

}  // namespace

cRMIException::cRMIException() : miInterfaceIndex(0), miInterfaceKey(0), meOperation(eCallSlot) {}

cRMIException::cRMIException(const cComponentLocation& location, unsigned int index, Operation operation,
                             const qstd::cAsciiString& name, qstd::cCallSite at)
    : tException(describe(operation, "$QTR$Unable to call slot \"%slot%\" on interface %idx%!",
                          "$QTR$Unable to connect signal \"%signal%\" to interface %idx%!", name, index),
                 at.file, at.line),
      mLocation(location),
      miInterfaceIndex(index),
      miInterfaceKey(0),
      meOperation(operation),
      msSignalSlotName(name) {}

cRMIException::cRMIException(unsigned int key, Operation operation, const qstd::cAsciiString& name, qstd::cCallSite at)
    : tException(describe(operation, "$QTR$Unable to call slot \"%slot%\" on interface key %key%!",
                          "$QTR$Unable to connect signal \"%signal%\" to interface key %key%!", name, key),
                 at.file, at.line),
      miInterfaceIndex(0),
      miInterfaceKey(key),
      meOperation(operation),
      msSignalSlotName(name) {}

void cRMIException::store(qsa::cAbstractSerializer& s) const {
  cRuntimeException::store(s);
  mLocation >> s;
  miInterfaceIndex >> s;
  miInterfaceKey >> s;
  static_cast<unsigned int>(meOperation) >> s;
  msSignalSlotName >> s;
}

void cRMIException::load(qsa::cAbstractDeserializer& d) {
  cRMIException read(*this);
  read.cRuntimeException::load(d);
  read.mLocation << d;
  read.miInterfaceIndex << d;
  read.miInterfaceKey << d;
  unsigned int operation = 0;
  operation << d;
  read.meOperation = static_cast<Operation>(operation);
  read.msSignalSlotName << d;
  swap(read);
}

}  // namespace qcs
