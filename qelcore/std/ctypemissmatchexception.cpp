#include "qelcore/std/ctypemissmatchexception.h"

#include <utility>

namespace qstd {

cTypeMissmatchException::cTypeMissmatchException() {}

cTypeMissmatchException::cTypeMissmatchException(const cAsciiString& expected, const cAsciiString& assigned)
    : mExpectedType(expected), mAssignedType(assigned) {
  setMsg(qucs::cLIMessage("$QTR$Type mismatch: Expecting type \"%expected%\" but got object of type \"%got%\"!")
         << expected << assigned);
}

cTypeMissmatchException::cTypeMissmatchException(const qucs::cLIMessage& msg, const cAsciiString& expected,
                                                 const cAsciiString& assigned)
    : mExpectedType(expected), mAssignedType(assigned) {
  setMsg(msg);
}

cTypeMissmatchException::cTypeMissmatchException(const cTypeMissmatchException& other)
    : cBugException(other), mExpectedType(other.mExpectedType), mAssignedType(other.mAssignedType) {}

cTypeMissmatchException& cTypeMissmatchException::operator=(const cTypeMissmatchException& other) {
  if (this != &other) {
    cTypeMissmatchException copy(other);
    swap(copy);
  }
  return *this;
}

cTypeMissmatchException::~cTypeMissmatchException() {}

void cTypeMissmatchException::swap(cTypeMissmatchException& other) {
  cBugException::swap(other);
  mExpectedType.swap(other.mExpectedType);
  mAssignedType.swap(other.mAssignedType);
}

cAbstractException* cTypeMissmatchException::createObject() const { return new cTypeMissmatchException; }
cAbstractException* cTypeMissmatchException::clone() const { return new cTypeMissmatchException(*this); }
cAsciiString cTypeMissmatchException::typeName() const { return cAsciiString("cTypeMissmatchException"); }

}  // namespace qstd
