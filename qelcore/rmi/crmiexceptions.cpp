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

void cRMIExceptions::throwNoSuchSlot(const cAsciiString& slot, const cAsciiString& args, qstd::cCallSite at) {
  throw cNoSuchSlotException(cLIMessage("$QTR$Slot \"%slot%(%args%)\" not found in interface!") << slot << args, slot,
                             args, at.file, at.line);
}

void cRMIExceptions::throwNoSuchSlot(const cAsciiString& slot, qsa::cReferenceFrame& frame, qstd::cCallSite at) {
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
                             args, at.file, at.line);
}

void cRMIExceptions::throwNoSuchSignal(const cAsciiString& signal, qstd::cCallSite at) {
  throw cNoSuchSignalException(cLIMessage("$QTR$Signal \"%s%\" could not be found in interface!") << signal, signal,
                               at.file, at.line);
}

void cRMIExceptions::throwUnconnectedSignal(qstd::cCallSite at) {
  throw cUnconnectedSignalException(cLIMessage("$QTR$Call of an unconnected signal"), at.file, at.line);
}

void cRMIExceptions::throwIndirectLocalConnection(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Indirect connections not possible with explicit local signals!"), at.file,
                            at.line);
}

void cRMIExceptions::throwIndirectLocalSlotCall(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Slots connected to an explicit local signal cannot be called indirectly!"),
                            at.file, at.line);
}

void cRMIExceptions::throwIndirectCallSlotCallRef(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Indirect slots cannot be called by reference!"), at.file, at.line);
}

void cRMIExceptions::throwParameterMissmatch(const cPublicSlot* slot, const qstd::cAbstractException& cause,
                                             qstd::cCallSite at) {
  if (!slot) {
    cCallParameterMissmatchException e(
        cLIMessage("$QTR$Slot parameter or return value missmatch on unregistered slot!"), cAsciiString(), at.file,
        at.line);
    e.link(cause);
    throw e;
  }
  qstd::cRuntimeException definition(cLIMessage("$QTR$Definition: \"%returnValue% %slotName%(%arguments%)\"")
                                         << slot->returnTypeName() << slot->name() << slot->paramTypeNames(),
                                     at.file, at.line);
  definition.link(cause);
  cCallParameterMissmatchException e(
      cLIMessage("$QTR$Slot parameter of (%slot%) or return value missmatch!") << slot->name(), slot->name(), at.file,
      at.line);
  e.link(definition);
  throw e;
}

void cRMIExceptions::throwSignalAlreadyPublic(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Signal is already a public one!"), at.file, at.line);
}

void cRMIExceptions::throwNotPublicSignal(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Signal is not a public one!"), at.file, at.line);
}

void cRMIExceptions::throwNotPublicSlot(qstd::cCallSite at) {
  throw qstd::cBugException(cLIMessage("$QTR$Slot is not a public one!"), at.file, at.line);
}

}  // namespace qrmi
