#include "qelcore/qcs/crmiexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qcs {

cRMIException::cRMIException() : miInterfaceIndex(0), miInterfaceKey(0), meOperation(eCallSlot) {}

cRMIException::cRMIException(const cComponentLocation& location, unsigned int index, Operation operation,
                             const qstd::cAsciiString& name, const char* file, unsigned int line)
    : tException(qucs::cLIMessage(), file, line),
      mLocation(location),
      miInterfaceIndex(index),
      miInterfaceKey(0),
      meOperation(operation),
      msSignalSlotName(name) {
  if (operation == eCallSlot)
    setMsg(qucs::cLIMessage("$QTR$Unable to call slot \"%slot%\" on interface %idx%!") << name << index);
  else if (operation == eConnectSignal)
    setMsg(qucs::cLIMessage("$QTR$Unable to connect signal \"%signal%\" to interface %idx%!") << name << index);
}

cRMIException::cRMIException(unsigned int key, Operation operation, const qstd::cAsciiString& name, const char* file,
                             unsigned int line)
    : tException(qucs::cLIMessage(), file, line),
      miInterfaceIndex(0),
      miInterfaceKey(key),
      meOperation(operation),
      msSignalSlotName(name) {
  if (operation == eCallSlot)
    setMsg(qucs::cLIMessage("$QTR$Unable to call slot \"%slot%\" on interface key %key%!") << name << key);
  else if (operation == eConnectSignal)
    setMsg(qucs::cLIMessage("$QTR$Unable to connect signal \"%signal%\" to interface key %key%!") << name << key);
}

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
