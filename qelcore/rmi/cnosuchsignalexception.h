/// \class qrmi::cNoSuchSignalException
/// A public signal was asked for by a name that the interface does not publish.
#ifndef QELCORE_RMI_CNOSUCHSIGNALEXCEPTION_H
#define QELCORE_RMI_CNOSUCHSIGNALEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"

namespace qrmi {

class QEL_EXPORT cNoSuchSignalException : public qstd::tException<cNoSuchSignalException, qstd::cRuntimeException> {
public:
  /// "cNoSuchSignalException", the name in the exception registry.
  static const char* staticTypeName() { return "cNoSuchSignalException"; }

  cNoSuchSignalException() {}
  /// `msg` about `signalName`, raised at `file`:`line`.
  cNoSuchSignalException(const qucs::cLIMessage& msg, const qstd::cAsciiString& signalName, const char* file,
                         unsigned int line);

  /// The signal looked for.
  const qstd::cAsciiString& signalName() const { return msSignal; }

private:
  qstd::cAsciiString msSignal;
};

}  // namespace qrmi

#endif
