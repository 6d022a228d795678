#include "qelcore/std/cbugexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

cBugException::cBugException() : cAbstractException("bug", TypeBug, "unknown", 0) {}

cBugException::cBugException(const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : cAbstractException("bug", TypeBug, file, line), mMessage(msg) {}

cBugException::cBugException(const cBugException& other) : cAbstractException(other), mMessage(other.mMessage) {}

cBugException& cBugException::operator=(const cBugException& other) {
  if (this != &other) {
    qucs::cLIMessage msg(other.mMessage);
    cAbstractException::operator=(other);
    mMessage.swap(msg);
  }
  return *this;
}

cBugException::~cBugException() {}

void cBugException::swap(cBugException& other) {
  swapBase(other);
  mMessage.swap(other.mMessage);
}

cAbstractException* cBugException::createObject() const { return new cBugException; }
cAbstractException* cBugException::clone() const { return new cBugException(*this); }
cAsciiString cBugException::typeName() const { return cAsciiString("cBugException"); }
const qucs::cLIMessage* cBugException::liMessage() const { return &mMessage; }
void cBugException::setMsg(const qucs::cLIMessage& msg) { mMessage = msg; }

void cBugException::throwAssertionFailed(const char* expr, const char* file, unsigned int line) {
  cSTDExceptions::throwAssertionFailed(expr, file, line);
}

void cBugException::store(qsa::cAbstractSerializer& s) const {
  qsa::cPositionGuard guard(s);
  cAbstractException::store(s);
  mMessage >> s;
  guard.commit();
}

void cBugException::load(qsa::cAbstractDeserializer& d) {
  qsa::cPositionGuard guard(d);
  cAbstractException::load(d);
  mMessage << d;
  guard.commit();
}

}  // namespace qstd
