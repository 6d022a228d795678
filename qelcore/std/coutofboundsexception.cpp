#include "qelcore/std/coutofboundsexception.h"

namespace qstd {

cOutOfBoundsException::cOutOfBoundsException() {}

cOutOfBoundsException::cOutOfBoundsException(const char* container, const char* operation)
    : mContainer(container ? container : ""), mOperation(operation ? operation : "") {
  qucs::cLIMessage msg;
  if (container && operation)
    msg << "$QTR$Out of bounds condition detected in \"%container%\" while executing \"%operation%\"!" << container
        << operation;
  else if (container)
    msg << "$QTR$Out of bounds condition detected in \"%container%\"!" << container;
  else
    msg << "$QTR$Out of bounds condition detected!";
  setMsg(msg);
}

cOutOfBoundsException::cOutOfBoundsException(const cOutOfBoundsException& other)
    : cBugException(other), mContainer(other.mContainer), mOperation(other.mOperation) {}

cOutOfBoundsException& cOutOfBoundsException::operator=(const cOutOfBoundsException& other) {
  if (this != &other) {
    cOutOfBoundsException copy(other);
    swap(copy);
  }
  return *this;
}

cOutOfBoundsException::~cOutOfBoundsException() {}

void cOutOfBoundsException::swap(cOutOfBoundsException& other) {
  cBugException::swap(other);
  mContainer.swap(other.mContainer);
  mOperation.swap(other.mOperation);
}

cAbstractException* cOutOfBoundsException::createObject() const { return new cOutOfBoundsException; }
cAbstractException* cOutOfBoundsException::clone() const { return new cOutOfBoundsException(*this); }
cAsciiString cOutOfBoundsException::typeName() const { return cAsciiString("cOutOfBoundsException"); }

}  // namespace qstd
