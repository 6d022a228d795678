/// \class qrmi::cCallParameterMissmatchException
/// The arguments or the result of an indirect slot call did not fit the slot.
#ifndef QELCORE_RMI_CCALLPARAMETERMISSMATCHEXCEPTION_H
#define QELCORE_RMI_CCALLPARAMETERMISSMATCHEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qrmi {

class QEL_EXPORT cCallParameterMissmatchException
    : public qstd::tException<cCallParameterMissmatchException, qstd::cBugException> {
public:
  /// "cCallParameterMissmatchException", the name in the exception registry.
  static const char* staticTypeName() { return "cCallParameterMissmatchException"; }

  cCallParameterMissmatchException() {}
  /// `msg` about the call of `slotName`, raised at `file`:`line`.
  cCallParameterMissmatchException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName, const char* file,
                                   unsigned int line);

  /// The slot whose parameters did not fit.
  const qstd::cAsciiString& slotName() const { return msSlot; }

private:
  qstd::cAsciiString msSlot;
};

}  // namespace qrmi

#endif
