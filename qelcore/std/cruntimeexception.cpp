#include "qelcore/std/cruntimeexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/casciistring.h"

namespace qstd {

cRuntimeException::cRuntimeException() : cAbstractException("runtime", TypeRuntime, "unknown", 0) {}

cRuntimeException::cRuntimeException(const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : cAbstractException("runtime", TypeRuntime, file, line), mMessage(msg) {}

cRuntimeException::cRuntimeException(const cRuntimeException& other)
    : cAbstractException(other), mMessage(other.mMessage) {}

cRuntimeException& cRuntimeException::operator=(const cRuntimeException& other) {
  if (this != &other) {
    qucs::cLIMessage msg(other.mMessage);
    cAbstractException::operator=(other);
    mMessage.swap(msg);
  }
  return *this;
}

cRuntimeException::~cRuntimeException() {}

void cRuntimeException::swap(cRuntimeException& other) {
  swapBase(other);
  mMessage.swap(other.mMessage);
}

cAbstractException* cRuntimeException::createObject() const { return new cRuntimeException; }
cAbstractException* cRuntimeException::clone() const { return new cRuntimeException(*this); }
cAsciiString cRuntimeException::typeName() const { return cAsciiString("cRuntimeException"); }
const qucs::cLIMessage* cRuntimeException::liMessage() const { return &mMessage; }
void cRuntimeException::setMsg(const qucs::cLIMessage& msg) { mMessage = msg; }

void cRuntimeException::store(qsa::cAbstractSerializer& s) const {
  qsa::cPositionGuard guard(s);
  cAbstractException::store(s);
  mMessage >> s;
  guard.commit();
}

void cRuntimeException::load(qsa::cAbstractDeserializer& d) {
  qsa::cPositionGuard guard(d);
  cAbstractException::load(d);
  mMessage << d;
  guard.commit();
}

}  // namespace qstd
