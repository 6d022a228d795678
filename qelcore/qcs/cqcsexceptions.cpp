#include "qelcore/qcs/cqcsexceptions.h"

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cnopublicinterfaceexception.h"
#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/qcs/cunmatchedinterfaceexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {

using qstd::cRuntimeException;
using qucs::cLIMessage;

void cQCSExceptions::throwNoSuchInterface(const qstd::cAsciiString& name, const qstd::cAbstractException* cause,
                                          const char* file, unsigned int line) {
  cRuntimeException e(cLIMessage("$QTR$No such interface (\"%interface%\")!") << name, file, line);
  if (cause) e.link(*cause);
  throw e;
}

void cQCSExceptions::throwComponentIdNotUnique(unsigned int id, const char* file, unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$Component id (%id%) not unique!") << id, file, line);
}

void cQCSExceptions::throwInterfaceLoadError(const qstd::cAsciiString& name, const char* file, unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$Unable to deserialize interface description of \"%name%\"!") << name, file,
                          line);
}

void cQCSExceptions::throwNoCoreExtension(const qucs::cString& name, const char* file, unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$Module (\"%name%\") does not provide core extension functionality.") << name,
                          file, line);
}

void cQCSExceptions::throwNoSuchModule(const cComponentAddr& address, const char* file, unsigned int line) {
  throw cNoSuchModuleException(address, file, line);
}

void cQCSExceptions::throwNoSuchModule(const cComponentLocation& location, const char* file, unsigned int line) {
  throw cNoSuchModuleException(location, file, line);
}

void cQCSExceptions::throwNoSuchModule(const qstd::cAsciiString& name, const char* file, unsigned int line) {
  throw cNoSuchModuleException(name, file, line);
}

void cQCSExceptions::throwNoPublicInterface(const qrmi::cConnectable&, const char* file, unsigned int line) {
  throw cNoPublicInterfaceException(file, line);
}

void cQCSExceptions::throwUnmatchedInterface(const char* file, unsigned int line) {
  throw cUnmatchedInterfaceException(file, line);
}

void cQCSExceptions::throwExpectingColon(const char* file, unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$Expecting \":\"!"), file, line);
}

void cQCSExceptions::throwMalformedComponentAddress(const qstd::cAsciiString& text,
                                                    const qstd::cAbstractException& cause, const char* file,
                                                    unsigned int line) {
  cRuntimeException e(cLIMessage("$QTR$Malformed component address (\"%addr%\")!") << text, file, line);
  e.link(cause);
  throw e;
}

void cQCSExceptions::throwNoApplication(const char* file, unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$No application object set!"), file, line);
}

void cQCSExceptions::throwUnknownRemoteException(const qstd::cAsciiString& typeName, const char* file,
                                                 unsigned int line) {
  throw cRuntimeException(cLIMessage("$QTR$Unknown remote exception of type %type%!") << typeName, file, line);
}

}  // namespace qcs
