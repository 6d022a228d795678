/// \class qstd::cTypeMissmatchException
/// An object of one type was given where another was expected.
#ifndef QELCORE_STD_CTYPEMISSMATCHEXCEPTION_H
#define QELCORE_STD_CTYPEMISSMATCHEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cTypeMissmatchException : public tException<cTypeMissmatchException, cBugException> {
public:
  /// "cTypeMissmatchException", the name in the exception registry.
  static const char* staticTypeName() { return "cTypeMissmatchException"; }

  cTypeMissmatchException() {}
  /// `expected` was wanted, `assigned` was found.
  cTypeMissmatchException(const cAsciiString& expected, const cAsciiString& assigned, const char* file = "unknown",
                          unsigned int line = 0);
  /// The same mismatch told with another message.
  cTypeMissmatchException(const qucs::cLIMessage& msg, const cAsciiString& expected, const cAsciiString& assigned,
                          const char* file = "unknown", unsigned int line = 0);

  /// The type wanted.
  const cAsciiString& expectedType() const { return mExpectedType; }
  /// The type found.
  const cAsciiString& assignedType() const { return mAssignedType; }

private:
  cAsciiString mExpectedType;
  cAsciiString mAssignedType;
};

}  // namespace qstd

#endif
