// The throw functions of the signal and slot subsystem.
#ifndef QELCORE_RMI_CRMIEXCEPTIONS_H
#define QELCORE_RMI_CRMIEXCEPTIONS_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
class cAbstractException;
}  // namespace qstd
namespace qsa {
class cReferenceFrame;
}

namespace qrmi {

class cPublicSlot;

class QEL_EXPORT cRMIExceptions {
public:
  // cNoSuchSlotException "Slot "%slot%(%args%)" not found in interface!".
  [[noreturn]] static void throwNoSuchSlot(const qstd::cAsciiString& slot, const qstd::cAsciiString& args);
  // The same without the final "!", the arguments given as the frame's types.
  [[noreturn]] static void throwNoSuchSlot(const qstd::cAsciiString& slot, qsa::cReferenceFrame& frame);
  // cNoSuchSignalException "Signal "%s%" could not be found in interface!".
  [[noreturn]] static void throwNoSuchSignal(const qstd::cAsciiString& signal);
  // cUnconnectedSignalException "Call of an unconnected signal".
  [[noreturn]] static void throwUnconnectedSignal();
  // Bug exceptions for indirect use of explicitly local signals and slots.
  [[noreturn]] static void throwIndirectLocalConnection();
  [[noreturn]] static void throwIndirectLocalSlotCall();
  [[noreturn]] static void throwIndirectCallSlotCallRef();
  // cCallParameterMissmatchException with `cause` linked: directly for an
  // unpublished slot, behind the slot's definition for a published one.
  [[noreturn]] static void throwParameterMissmatch(const cPublicSlot* slot, const qstd::cAbstractException& cause);
  // Bug exceptions "Signal is not a public one!" / "Slot is not a public one!".
  [[noreturn]] static void throwNotPublicSignal();
  [[noreturn]] static void throwNotPublicSlot();
};

}  // namespace qrmi

#endif
