/// \class qcs::cRMIException
/// A slot call or signal connection on a remote interface failed: where (the
/// remote location and interface index, or an interface key) and what (the
/// operation and the slot's or signal's name). Unlike the other exceptions of
/// the library it archives these fields along with its message.
///
/// \code
///   throw qcs::cRMIException(remote, 2, qcs::cRMIException::eCallSlot, "now");
///   // "Unable to call slot "now" on interface 2!"
/// \endcode
#ifndef QELCORE_QCS_CRMIEXCEPTION_H
#define QELCORE_QCS_CRMIEXCEPTION_H

#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ccallsite.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"

namespace qcs {

class QEL_EXPORT cRMIException : public qstd::tException<cRMIException, qstd::cRuntimeException> {
public:
  /// "cRMIException", the name in the exception registry.
  static const char* staticTypeName() { return "cRMIException"; }

  /// What failed: calling a slot, or connecting a signal.
  enum Operation : unsigned int { eCallSlot = 0, eConnectSignal = 1 };

  /// A default location (this host and process), index and key 0.
  cRMIException();
  /// Key 0. "Unable to call slot "%slot%" on interface %idx%!" or "Unable to
  /// connect signal "%signal%" to interface %idx%!"; any other operation
  /// keeps the empty message.
  cRMIException(const cComponentLocation& location, unsigned int index, Operation operation,
                const qstd::cAsciiString& name, qstd::cCallSite at = qstd::cCallSite::here());
  /// A default location, index 0; the messages name the interface key.
  cRMIException(unsigned int key, Operation operation, const qstd::cAsciiString& name,
                qstd::cCallSite at = qstd::cCallSite::here());

  /// The remote side.
  const cComponentLocation& location() const { return mLocation; }
  /// The interface's index at the remote side (0 when built with a key).
  unsigned int interfaceIndex() const { return miInterfaceIndex; }
  /// The interface's key (0 when built with a location).
  unsigned int interfaceKey() const { return miInterfaceKey; }
  /// What failed.
  Operation operation() const { return meOperation; }
  /// The slot or signal.
  const qstd::cAsciiString& signalSlotName() const { return msSignalSlotName; }

  /// The runtime exception's part, then the location, index, key and
  /// operation (unsigned 32-bit) and the name.
  void store(qsa::cAbstractSerializer& s) const override;
  /// Reads the same; the exception changes only when all was read.
  void load(qsa::cAbstractDeserializer& d) override;

private:
  cComponentLocation mLocation;
  unsigned int miInterfaceIndex;
  unsigned int miInterfaceKey;
  Operation meOperation;
  qstd::cAsciiString msSignalSlotName;
};

}  // namespace qcs

#endif
