#include "qelcore/sa/csaexceptions.h"

#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/climessage.h"

namespace qsa {

void cSAExceptions::throwEndOfContext(qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Unable to deserialize - end of context!";
  throw qstd::cRuntimeException(msg, at.file, at.line);
}

void cSAExceptions::throwLabelNotFound(const qstd::cAsciiString& label, qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Unable to deserialize - label (\"%label%\") not found in current context!" << label;
  throw qstd::cRuntimeException(msg, at.file, at.line);
}

void cSAExceptions::throwSerializationError(const qstd::cAbstractException& cause, const qstd::cAsciiString& className,
                                            qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Serialization error (%class%)!" << className;
  qstd::cRuntimeException e(msg, at.file, at.line);
  e.link(cause);
  throw e;
}

void cSAExceptions::throwDeserializationError(const qstd::cAbstractException& cause,
                                              const qstd::cAsciiString& className, qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Deserialization error in (%class%)!" << className;
  qstd::cRuntimeException e(msg, at.file, at.line);
  e.link(cause);
  throw e;
}

void cSAExceptions::throwContextRefNoImpl(qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$cContextRef::unguardImpl(): no valid reference!";
  throw qstd::cRuntimeException(msg, at.file, at.line);
}

void cSAExceptions::throwUnserializable(const char* typeName, qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Attempt to serialize the local type %type%!" << qstd::cAsciiString(typeName ? typeName : "unknown");
  throw qstd::cBugException(msg, at.file, at.line);
}

void cSAExceptions::throwSerializerClearWithOpenContexts(qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Calling erase() with open contexts is invalid!";
  throw qstd::cBugException(msg, at.file, at.line);
}

void cSAExceptions::throwSerializerDataWithOpenContexts(qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Calling data() with open contexts is invalid!";
  throw qstd::cBugException(msg, at.file, at.line);
}

void cSAExceptions::throwInvalidTypeId(long long id, qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$Invalid type id (%id%) while deserializing!" << id;
  throw qstd::cRuntimeException(msg, at.file, at.line);
}

void cSAExceptions::throwPatchSizeMissmatch(unsigned int position, unsigned long long size,
                                            unsigned long long patchSize, qstd::cCallSite at) {
  qucs::cLIMessage msg;
  msg << "$QTR$The element at %position% has %size% bytes and cannot be patched with one of %patchSize% bytes!"
      << position << size << patchSize;
  throw qstd::cBugException(msg, at.file, at.line);
}

void cSAExceptions::throwTypeMissmatch(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                       const qstd::cAsciiString& lastLabel, qstd::cCallSite at) {
  if (lastLabel.empty()) throw qstd::cTypeMissmatchException(expected, got, at.file, at.line);
  throw cLabeledTypeMissmatchException(expected, got, lastLabel, at.file, at.line);
}

}  // namespace qsa
