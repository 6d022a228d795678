// An object of one type was given where another was expected.
#ifndef QELCORE_STD_CTYPEMISSMATCHEXCEPTION_H
#define QELCORE_STD_CTYPEMISSMATCHEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cTypeMissmatchException : public cBugException {
public:
  cTypeMissmatchException();
  cTypeMissmatchException(const cAsciiString& expected, const cAsciiString& assigned);
  cTypeMissmatchException(const qucs::cLIMessage& msg, const cAsciiString& expected, const cAsciiString& assigned);
  cTypeMissmatchException(const cTypeMissmatchException& other);
  cTypeMissmatchException& operator=(const cTypeMissmatchException& other);
  ~cTypeMissmatchException() override;
  void swap(cTypeMissmatchException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const cAsciiString& expectedType() const { return mExpectedType; }
  const cAsciiString& assignedType() const { return mAssignedType; }

private:
  cAsciiString mExpectedType;
  cAsciiString mAssignedType;
};

}  // namespace qstd

#endif
