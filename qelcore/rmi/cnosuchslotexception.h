/// \class qrmi::cNoSuchSlotException
/// A public slot was asked for by a name that the interface does not publish.
#ifndef QELCORE_RMI_CNOSUCHSLOTEXCEPTION_H
#define QELCORE_RMI_CNOSUCHSLOTEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"

namespace qrmi {

class QEL_EXPORT cNoSuchSlotException : public qstd::tException<cNoSuchSlotException, qstd::cRuntimeException> {
public:
  /// "cNoSuchSlotException", the name in the exception registry.
  static const char* staticTypeName() { return "cNoSuchSlotException"; }

  cNoSuchSlotException() {}
  /// `msg` about `slotName` with the parameter types `slotArgs`, raised at `file`:`line`.
  cNoSuchSlotException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName,
                       const qstd::cAsciiString& slotArgs, const char* file, unsigned int line);

  /// The slot looked for.
  const qstd::cAsciiString& slotName() const { return msSlot; }
  /// The type string of its parameters.
  const qstd::cAsciiString& slotArgs() const { return msArgs; }

private:
  qstd::cAsciiString msSlot;
  qstd::cAsciiString msArgs;
};

}  // namespace qrmi

#endif
