// An operating-system call failed.
#ifndef QELCORE_STD_COSERROREXCEPTION_H
#define QELCORE_STD_COSERROREXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cOSErrorException : public cRuntimeException {
public:
  cOSErrorException();
  cOSErrorException(const cAsciiString& operation, int osErrorCode);
  cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& file);
  cOSErrorException(const cOSErrorException& other);
  cOSErrorException& operator=(const cOSErrorException& other);
  ~cOSErrorException() override;
  void swap(cOSErrorException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const cAsciiString& operation() const { return mOperation; }
  int osErrorCode() const { return miOsErrorCode; }
  const qucs::cString& fileName() const { return mFileName; }

private:
  cAsciiString mOperation;
  int miOsErrorCode;
  qucs::cString mFileName;
};

}  // namespace qstd

#endif
