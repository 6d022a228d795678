#include "qelcore/qcs/cqcsexceptions.h"

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cmoduleloadexception.h"
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
                                          qstd::cCallSite at) {
  cRuntimeException e(cLIMessage("$QTR$No such interface (\"%interface%\")!") << name, at.file, at.line);
  if (cause) e.link(*cause);
  throw e;
}

void cQCSExceptions::throwComponentIdNotUnique(unsigned int id, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Component id (%id%) not unique!") << id, at.file, at.line);
}

void cQCSExceptions::throwInterfaceLoadError(const qstd::cAsciiString& name, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Unable to deserialize interface description of \"%name%\"!") << name,
                          at.file, at.line);
}

void cQCSExceptions::throwNoCoreExtension(const qucs::cString& name, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Module (\"%name%\") does not provide core extension functionality.") << name,
                          at.file, at.line);
}

void cQCSExceptions::throwNoSuchModule(const cComponentAddr& address, qstd::cCallSite at) {
  throw cNoSuchModuleException(address, at.file, at.line);
}

void cQCSExceptions::throwNoSuchModule(const cComponentLocation& location, qstd::cCallSite at) {
  throw cNoSuchModuleException(location, at.file, at.line);
}

void cQCSExceptions::throwNoSuchModule(const qstd::cAsciiString& name, qstd::cCallSite at) {
  throw cNoSuchModuleException(name, at.file, at.line);
}

void cQCSExceptions::throwNoPublicInterface(const qrmi::cConnectable&, qstd::cCallSite at) {
  throw cNoPublicInterfaceException(at.file, at.line);
}

void cQCSExceptions::throwModuleLoadFailed(const qucs::cString& file, const qstd::cAsciiString& error,
                                           qstd::cCallSite at) {
  throw cModuleLoadException(cModuleLoadException::eLoadFailed, file,
                             cLIMessage("$QTR$Operating system returned error: %error%!") << error, at.file, at.line);
}

void cQCSExceptions::throwMissingSection(const qucs::cString& file, const char* section, qstd::cCallSite at) {
  // Whole texts, so that each stays one translatable message.
  const qstd::cAsciiString name(section);
  const char* text = name == "moduleVersion" ? "$QTR$Invalid module. Missing moduleVersion section!"
                     : name == "qelVersion"  ? "$QTR$Invalid module. Missing qelVersion section!"
                                             : "$QTR$Invalid module. Missing moduleInit section!";
  throw cModuleLoadException(cModuleLoadException::eInvalidModule, file, cLIMessage(text), at.file, at.line);
}

void cQCSExceptions::throwNoComponent(const qucs::cString& file, qstd::cCallSite at) {
  throw cModuleLoadException(cModuleLoadException::eNotProvided, file, cLIMessage("$QTR$cClassLoader: No component!"),
                             at.file, at.line);
}

void cQCSExceptions::throwNoComponentInstance(const qucs::cString& file, qstd::cCallSite at) {
  throw cModuleLoadException(cModuleLoadException::eNotProvided, file, cLIMessage("$QTR$cClassLoader: no instance!"),
                             at.file, at.line);
}

void cQCSExceptions::throwNotAPlugIn(const qucs::cString& file, qstd::cCallSite at) {
  throw cModuleLoadException(cModuleLoadException::eNotProvided, file,
                             cLIMessage("$QTR$File %file% is not a plugin!") << file, at.file, at.line);
}

void cQCSExceptions::throwNoPlugInInstance(const qucs::cString& file, qstd::cCallSite at) {
  throw cModuleLoadException(cModuleLoadException::eNotProvided, file,
                             cLIMessage("$QTR$Plugin (%file%) does not provide functionality!") << file, at.file,
                             at.line);
}

void cQCSExceptions::throwUnmatchedInterface(qstd::cCallSite at) {
  throw cUnmatchedInterfaceException(at.file, at.line);
}

void cQCSExceptions::throwExpectingColon(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Expecting \":\"!"), at.file, at.line);
}

void cQCSExceptions::throwMalformedComponentAddress(const qstd::cAsciiString& text,
                                                    const qstd::cAbstractException& cause, qstd::cCallSite at) {
  cRuntimeException e(cLIMessage("$QTR$Malformed component address (\"%addr%\")!") << text, at.file, at.line);
  e.link(cause);
  throw e;
}

void cQCSExceptions::throwNoApplication(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$No application object set!"), at.file, at.line);
}

void cQCSExceptions::throwUnknownRemoteException(const qstd::cAsciiString& typeName, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Unknown remote exception of type %type%!") << typeName, at.file, at.line);
}

void cQCSExceptions::throwSecretFile(const qucs::cString& file, const char* reason, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Unable to use the secret file \"%file%\": %reason%!") << file << reason,
                          at.file, at.line);
}

void cQCSExceptions::throwRemoteProtocol(const char* what, qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Remote protocol error: %what%!") << what, at.file, at.line);
}

void cQCSExceptions::throwRemoteAuthentication(qstd::cCallSite at) {
  throw cRuntimeException(cLIMessage("$QTR$Remote peer failed to authenticate!"), at.file, at.line);
}

}  // namespace qcs
