/// \class qrmi::cUnconnectedSignalException
/// An emission found no slot while its signal must be connected.
#ifndef QELCORE_RMI_CUNCONNECTEDSIGNALEXCEPTION_H
#define QELCORE_RMI_CUNCONNECTEDSIGNALEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"

namespace qrmi {

class QEL_EXPORT cUnconnectedSignalException
    : public qstd::tException<cUnconnectedSignalException, qstd::cRuntimeException> {
public:
  /// "cUnconnectedSignalException", the name in the exception registry.
  static const char* staticTypeName() { return "cUnconnectedSignalException"; }

  cUnconnectedSignalException() {}
  /// `msg`, raised at `file`:`line`.
  cUnconnectedSignalException(const qucs::cLIMessage& msg, const char* file, unsigned int line);
};

}  // namespace qrmi

#endif
