/// \class qcs::cQCSExceptions
/// The throw functions of the component system: one call per failure, so that
/// every part of the system reports it with the same exception and text. Each
/// records the caller's source file and line.
#ifndef QELCORE_QCS_CQCSEXCEPTIONS_H
#define QELCORE_QCS_CQCSEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qstd {
class cAsciiString;
class cAbstractException;
}  // namespace qstd
namespace qucs {
class cString;
}
namespace qrmi {
class cConnectable;
}

namespace qcs {

class cComponentAddr;
class cComponentLocation;

class QEL_EXPORT cQCSExceptions {
public:
  /// Runtime exception "No such interface ("%interface%")!", `cause` linked
  /// when given.
  [[noreturn]] static void throwNoSuchInterface(const qstd::cAsciiString& name, const qstd::cAbstractException* cause,
                                                qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Component id (%id%) not unique!".
  [[noreturn]] static void throwComponentIdNotUnique(unsigned int id, qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Unable to deserialize interface description of "%name%"!".
  [[noreturn]] static void throwInterfaceLoadError(const qstd::cAsciiString& name,
                                                   qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Module ("%name%") does not provide core extension functionality.".
  [[noreturn]] static void throwNoCoreExtension(const qucs::cString& name,
                                                qstd::cCallSite at = qstd::cCallSite::here());
  ///@{
  /// cNoSuchModuleException "Module (%addr%) not found!" with the key's text.
  [[noreturn]] static void throwNoSuchModule(const cComponentAddr& address,
                                             qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwNoSuchModule(const cComponentLocation& location,
                                             qstd::cCallSite at = qstd::cCallSite::here());
  [[noreturn]] static void throwNoSuchModule(const qstd::cAsciiString& name,
                                             qstd::cCallSite at = qstd::cCallSite::here());
  ///@}
  /// cNoPublicInterfaceException "No public interface!".
  [[noreturn]] static void throwNoPublicInterface(const qrmi::cConnectable& object,
                                                  qstd::cCallSite at = qstd::cCallSite::here());

  /// Module files (cModuleLoadException with the file's name).
  /// eLoadFailed: "Operating system returned error: %error%!".
  [[noreturn]] static void throwModuleLoadFailed(const qucs::cString& file, const qstd::cAsciiString& error,
                                                 qstd::cCallSite at = qstd::cCallSite::here());
  /// eInvalidModule: "Invalid module. Missing <section> section!", for the
  /// sections "moduleInit", "moduleVersion" and "qelVersion".
  [[noreturn]] static void throwMissingSection(const qucs::cString& file, const char* section,
                                               qstd::cCallSite at = qstd::cCallSite::here());
  /// eNotProvided: "cClassLoader: No component!".
  [[noreturn]] static void throwNoComponent(const qucs::cString& file, qstd::cCallSite at = qstd::cCallSite::here());
  /// eNotProvided: "cClassLoader: no instance!".
  [[noreturn]] static void throwNoComponentInstance(const qucs::cString& file,
                                                    qstd::cCallSite at = qstd::cCallSite::here());
  /// eNotProvided: "File %file% is not a plugin!".
  [[noreturn]] static void throwNotAPlugIn(const qucs::cString& file, qstd::cCallSite at = qstd::cCallSite::here());
  /// eNotProvided: "Plugin (%file%) does not provide functionality!".
  [[noreturn]] static void throwNoPlugInInstance(const qucs::cString& file,
                                                 qstd::cCallSite at = qstd::cCallSite::here());

  /// cUnmatchedInterfaceException "Unmatched interface!".
  [[noreturn]] static void throwUnmatchedInterface(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Expecting ":"!" (the cause of a malformed address).
  [[noreturn]] static void throwExpectingColon(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Malformed component address ("%addr%")!" with `cause`
  /// linked.
  [[noreturn]] static void throwMalformedComponentAddress(const qstd::cAsciiString& text,
                                                          const qstd::cAbstractException& cause,
                                                          qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "No application object set!".
  [[noreturn]] static void throwNoApplication(qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Unknown remote exception of type %type%!".
  [[noreturn]] static void throwUnknownRemoteException(const qstd::cAsciiString& typeName,
                                                       qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Unable to use the secret file "%file%": %reason%!".
  [[noreturn]] static void throwSecretFile(const qucs::cString& file, const char* reason,
                                           qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Remote protocol error: %what%!": the peer's bytes
  /// cannot be trusted any more and its connection is closed.
  [[noreturn]] static void throwRemoteProtocol(const char* what, qstd::cCallSite at = qstd::cCallSite::here());
  /// Runtime exception "Remote peer failed to authenticate!".
  [[noreturn]] static void throwRemoteAuthentication(qstd::cCallSite at = qstd::cCallSite::here());
};

}  // namespace qcs

#endif
