#include "qelcore/std/cbugexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

cBugException::cBugException() : tException("bug", TypeBug, "unknown", 0) {}

cBugException::cBugException(const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : tException("bug", TypeBug, file, line), mMessage(msg) {}

const qucs::cLIMessage* cBugException::liMessage() const { return &mMessage; }
void cBugException::setMsg(const qucs::cLIMessage& msg) { mMessage = msg; }

void cBugException::throwAssertionFailed(const char* expr, const char* file, unsigned int line) {
  cSTDExceptions::throwAssertionFailed(expr, file, line);
}

void cBugException::store(qsa::cAbstractSerializer& s) const { storeWithMessage(s, mMessage); }

void cBugException::load(qsa::cAbstractDeserializer& d) { loadWithMessage(d, mMessage); }

}  // namespace qstd
