/// \class qstd::cNumberConversionException
/// A text that is no number.
#ifndef QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H
#define QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cNumberConversionException : public tException<cNumberConversionException, cRuntimeException> {
public:
  /// "cNumberConversionException", the name in the exception registry.
  static const char* staticTypeName() { return "cNumberConversionException"; }

  cNumberConversionException() : miIndex(0) {}
  /// The text `number` does not convert; the fault is at `index`.
  cNumberConversionException(const qucs::cString& number, unsigned int index, const char* file = "unknown",
                             unsigned int line = 0);

  /// The text that did not convert.
  const qucs::cString& errornousNumber() const { return mNumber; }
  /// Where in it the fault is.
  unsigned int errornousIndex() const { return miIndex; }

private:
  qucs::cString mNumber;
  unsigned int miIndex;
};

}  // namespace qstd

#endif
