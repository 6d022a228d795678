/// \class qstd::cTypeErrorException
/// An archive names a type that cannot be read here.
#ifndef QELCORE_STD_CTYPEERROREXCEPTION_H
#define QELCORE_STD_CTYPEERROREXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cTypeErrorException : public tException<cTypeErrorException, cBugException> {
public:
  /// "cTypeErrorException", the name in the exception registry.
  static const char* staticTypeName() { return "cTypeErrorException"; }

  cTypeErrorException() {}
  /// A value of the type `type` cannot be used here.
  explicit cTypeErrorException(const cAsciiString& type, const char* file = "unknown", unsigned int line = 0);

  /// The type in question.
  const cAsciiString& type() const { return mType; }

private:
  cAsciiString mType;
};

}  // namespace qstd

#endif
