// A text that is no number.
#ifndef QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H
#define QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cNumberConversionException : public tException<cNumberConversionException, cRuntimeException> {
public:
  static const char* staticTypeName() { return "cNumberConversionException"; }

  cNumberConversionException() : miIndex(0) {}
  cNumberConversionException(const qucs::cString& number, unsigned int index, const char* file = "unknown",
                             unsigned int line = 0);

  const qucs::cString& errornousNumber() const { return mNumber; }
  unsigned int errornousIndex() const { return miIndex; }

private:
  qucs::cString mNumber;
  unsigned int miIndex;
};

}  // namespace qstd

#endif
