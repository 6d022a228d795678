#include "qelcore/std/cruntimeexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qstd {

cRuntimeException::cRuntimeException() : tException("runtime", TypeRuntime, "unknown", 0) {}

cRuntimeException::cRuntimeException(const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : tException("runtime", TypeRuntime, file, line), mMessage(msg) {}

const qucs::cLIMessage* cRuntimeException::liMessage() const { return &mMessage; }
void cRuntimeException::setMsg(const qucs::cLIMessage& msg) { mMessage = msg; }

void cRuntimeException::store(qsa::cAbstractSerializer& s) const { storeWithMessage(s, mMessage); }

void cRuntimeException::load(qsa::cAbstractDeserializer& d) { loadWithMessage(d, mMessage); }

}  // namespace qstd
