/// \class qrmi::cRMIExceptions
/// The throw functions of the signal and slot subsystem.
#ifndef QELCORE_RMI_CRMIEXCEPTIONS_H
#define QELCORE_RMI_CRMIEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qstd {
class cAsciiString;
class cAbstractException;
}  // namespace qstd
namespace qsa {
class cReferenceFrame;
}

namespace qrmi {

class cPublicSlot;

/// Every exception carries the file and line the function was called from.
class QEL_EXPORT cRMIExceptions {
public:
  /// cNoSuchSlotException "Slot "%slot%(%args%)" not found in interface!".
  [[noreturn]] static void throwNoSuchSlot(const qstd::cAsciiString& slot, const qstd::cAsciiString& args,
                                           qstd::cCallSite at = qstd::cCallSite::here());
  /// The same without the final "!", the arguments given as the frame's types.
  [[noreturn]] static void throwNoSuchSlot(const qstd::cAsciiString& slot, qsa::cReferenceFrame& frame,
                                           qstd::cCallSite at = qstd::cCallSite::here());
  /// cNoSuchSignalException "Signal "%s%" could not be found in interface!".
  [[noreturn]] static void throwNoSuchSignal(const qstd::cAsciiString& signal,
                                             qstd::cCallSite at = qstd::cCallSite::here());
  /// cUnconnectedSignalException "Call of an unconnected signal".
  [[noreturn]] static void throwUnconnectedSignal(qstd::cCallSite at = qstd::cCallSite::here());
  ///@{
  /// Bug exceptions for indirect use of explicitly local signals and slots.
  [[noreturn]] static void throwIndirectLocalConnection(qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwIndirectLocalSlotCall(qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwIndirectCallSlotCallRef(qstd::cCallSite at = qstd::cCallSite::here());
  ///@}
  /// cCallParameterMissmatchException with `cause` linked: directly for an
  /// unpublished slot, behind the slot's definition for a published one.
  [[noreturn]] static void throwParameterMissmatch(const cPublicSlot* slot, const qstd::cAbstractException& cause,
                                                   qstd::cCallSite at = qstd::cCallSite::here());
  /// Bug exception "Signal is already a public one!" (a second export).
  [[noreturn]] static void throwSignalAlreadyPublic(qstd::cCallSite at = qstd::cCallSite::here());
  /// Bug exception "Signal is not a public one!".
  [[noreturn]] static void throwNotPublicSignal(qstd::cCallSite at = qstd::cCallSite::here());
  /// Bug exception "Slot is not a public one!".
  [[noreturn]] static void throwNotPublicSlot(qstd::cCallSite at = qstd::cCallSite::here());
};

}  // namespace qrmi

#endif
