#include "qelcore/std/cruntimeexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qstd {

cRuntimeException::cRuntimeException() : tException("runtime", TypeRuntime, "unknown", 0) {}

cRuntimeException::cRuntimeException(const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : tException("runtime", TypeRuntime, file, line), mMessage(msg) {}

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
  Type type;
  bool outOfMemory;
  loadKind(d, type, outOfMemory);
  qucs::cLIMessage message;
  message << d;
  guard.commit();
  setKind(type, outOfMemory);
  mMessage.swap(message);
}

}  // namespace qstd
