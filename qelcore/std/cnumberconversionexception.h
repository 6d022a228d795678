// A text that is no number.
#ifndef QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H
#define QELCORE_STD_CNUMBERCONVERSIONEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cNumberConversionException : public cRuntimeException {
public:
  cNumberConversionException();
  cNumberConversionException(const qucs::cString& number, unsigned int index);
  cNumberConversionException(const cNumberConversionException& other);
  cNumberConversionException& operator=(const cNumberConversionException& other);
  ~cNumberConversionException() override;
  void swap(cNumberConversionException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const qucs::cString& errornousNumber() const { return mNumber; }
  unsigned int errornousIndex() const { return miIndex; }

private:
  qucs::cString mNumber;
  unsigned int miIndex;
};

}  // namespace qstd

#endif
