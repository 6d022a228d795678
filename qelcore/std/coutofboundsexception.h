/// \class qstd::cOutOfBoundsException
/// A range whose end does not fit the index type (index + count overflows).
#ifndef QELCORE_STD_COUTOFBOUNDSEXCEPTION_H
#define QELCORE_STD_COUTOFBOUNDSEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cOutOfBoundsException : public tException<cOutOfBoundsException, cBugException> {
public:
  /// "cOutOfBoundsException", the name in the exception registry.
  static const char* staticTypeName() { return "cOutOfBoundsException"; }

  cOutOfBoundsException() {}
  /// Either name may be null; the message names what is given.
  cOutOfBoundsException(const char* container, const char* operation, const char* file = "unknown",
                        unsigned int line = 0);

  /// The container class.
  const cAsciiString& container() const { return mContainer; }
  /// The operation that failed.
  const cAsciiString& operation() const { return mOperation; }

private:
  cAsciiString mContainer;
  cAsciiString mOperation;
};

}  // namespace qstd

#endif
