// An archive names a type that cannot be read here.
#ifndef QELCORE_STD_CTYPEERROREXCEPTION_H
#define QELCORE_STD_CTYPEERROREXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cTypeErrorException : public cBugException {
public:
  cTypeErrorException();
  cTypeErrorException(const cAsciiString& type);
  cTypeErrorException(const cTypeErrorException& other);
  cTypeErrorException& operator=(const cTypeErrorException& other);
  ~cTypeErrorException() override;
  void swap(cTypeErrorException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const cAsciiString& type() const { return mType; }

private:
  cAsciiString mType;
};

}  // namespace qstd

#endif
