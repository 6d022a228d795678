#include "qelcore/rmi/crmiexceptions.h"

#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qrmi {

using qstd::cAsciiString;
using qucs::cLIMessage;

void cRMIExceptions::throwNoSuchSlot(const cAsciiString& slot, const cAsciiString& args) {
  throw cNoSuchSlotException(cLIMessage("$QTR$Slot \"%slot%(%args%)\" not found in interface!") << slot << args, slot,
                             args, __FILE__, __LINE__);
}

void cRMIExceptions::throwNoSuchSlot(const cAsciiString& slot, qsa::cReferenceFrame& frame) {
  cAsciiString args;
  try {
    qsa::cSerializeToTypeString types;
    frame >> types;
    args = types.typeString();
  } catch (const qstd::cAbstractException&) {
    // A value without archive form: name the types as the frame knows them.
    args = frame.typeString();
  }
  throw cNoSuchSlotException(cLIMessage("$QTR$Slot \"%slot%(%args%)\" not found in interface") << slot << args, slot,
                             args, __FILE__, __LINE__);
}

void cRMIExceptions::throwNoSuchSignal(const cAsciiString& signal) {
  throw cNoSuchSignalException(cLIMessage("$QTR$Signal \"%s%\" could not be found in interface!") << signal, signal,
                               __FILE__, __LINE__);
}

void cRMIExceptions::throwUnconnectedSignal() {
  throw cUnconnectedSignalException(cLIMessage("$QTR$Call of an unconnected signal"), __FILE__, __LINE__);
}

void cRMIExceptions::throwIndirectLocalConnection() {
  throw qstd::cBugException(cLIMessage("$QTR$Indirect connections not possible with explicit local signals!"), __FILE__,
                            __LINE__);
}

void cRMIExceptions::throwIndirectLocalSlotCall() {
  throw qstd::cBugException(cLIMessage("$QTR$Slots connected to an explicit local signal cannot be called indirectly!"),
                            __FILE__, __LINE__);
}

void cRMIExceptions::throwIndirectCallSlotCallRef() {
  throw qstd::cBugException(cLIMessage("$QTR$Indirect slots cannot be called by reference!"), __FILE__, __LINE__);
}

void cRMIExceptions::throwParameterMissmatch(const cPublicSlot* slot, const qstd::cAbstractException& cause) {
  if (!slot) {
    cCallParameterMissmatchException e(
        cLIMessage("$QTR$Slot parameter or return value missmatch on unregistered slot!"), cAsciiString(), __FILE__,
        __LINE__);
    e.link(cause);
    throw e;
  }
  qstd::cRuntimeException definition(cLIMessage("$QTR$Definition: \"%returnValue% %slotName%(%arguments%)\"")
                                         << slot->returnTypeName() << slot->name() << slot->paramTypeNames(),
                                     __FILE__, __LINE__);
  definition.link(cause);
  cCallParameterMissmatchException e(
      cLIMessage("$QTR$Slot parameter of (%slot%) or return value missmatch!") << slot->name(), slot->name(), __FILE__,
      __LINE__);
  e.link(definition);
  throw e;
}

void cRMIExceptions::throwNotPublicSignal() {
  throw qstd::cBugException(cLIMessage("$QTR$Signal is not a public one!"), __FILE__, __LINE__);
}

void cRMIExceptions::throwNotPublicSlot() {
  throw qstd::cBugException(cLIMessage("$QTR$Slot is not a public one!"), __FILE__, __LINE__);
}

}  // namespace qrmi
