#include "qelcore/std/ctypeerrorexception.h"

#include <utility>

namespace qstd {

cTypeErrorException::cTypeErrorException() {}

cTypeErrorException::cTypeErrorException(const cAsciiString& type) : mType(type) {
  setMsg(qucs::cLIMessage("$QTR$Type error while deserializing of %type%!") << type);
}

cTypeErrorException::cTypeErrorException(const cTypeErrorException& other) : cBugException(other), mType(other.mType) {}

cTypeErrorException& cTypeErrorException::operator=(const cTypeErrorException& other) {
  if (this != &other) {
    cTypeErrorException copy(other);
    swap(copy);
  }
  return *this;
}

cTypeErrorException::~cTypeErrorException() {}

void cTypeErrorException::swap(cTypeErrorException& other) {
  cBugException::swap(other);
  mType.swap(other.mType);
}

cAbstractException* cTypeErrorException::createObject() const { return new cTypeErrorException; }
cAbstractException* cTypeErrorException::clone() const { return new cTypeErrorException(*this); }
cAsciiString cTypeErrorException::typeName() const { return cAsciiString("cTypeErrorException"); }

}  // namespace qstd
