// An archive names a type that cannot be read here.
#ifndef QELCORE_STD_CTYPEERROREXCEPTION_H
#define QELCORE_STD_CTYPEERROREXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cTypeErrorException : public tException<cTypeErrorException, cBugException> {
public:
  static const char* staticTypeName() { return "cTypeErrorException"; }

  cTypeErrorException() {}
  explicit cTypeErrorException(const cAsciiString& type, const char* file = "unknown", unsigned int line = 0);

  const cAsciiString& type() const { return mType; }

private:
  cAsciiString mType;
};

}  // namespace qstd

#endif
