// The throw functions of the component system: one call per failure, so that
// every part of the system reports it with the same exception and text. Each
// records the caller's source file and line.
#ifndef QELCORE_QCS_CQCSEXCEPTIONS_H
#define QELCORE_QCS_CQCSEXCEPTIONS_H

#include "qelcore/qelexport.h"

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

#define QEL_QCS_WHERE const char *file = __builtin_FILE(), unsigned int line = __builtin_LINE()

class QEL_EXPORT cQCSExceptions {
public:
  // Runtime exception "No such interface ("%interface%")!", `cause` linked
  // when given.
  [[noreturn]] static void throwNoSuchInterface(const qstd::cAsciiString& name, const qstd::cAbstractException* cause,
                                                QEL_QCS_WHERE);
  // Runtime exception "Component id (%id%) not unique!".
  [[noreturn]] static void throwComponentIdNotUnique(unsigned int id, QEL_QCS_WHERE);
  // Runtime exception "Unable to deserialize interface description of "%name%"!".
  [[noreturn]] static void throwInterfaceLoadError(const qstd::cAsciiString& name, QEL_QCS_WHERE);
  // Runtime exception "Module ("%name%") does not provide core extension functionality.".
  [[noreturn]] static void throwNoCoreExtension(const qucs::cString& name, QEL_QCS_WHERE);
  // cNoSuchModuleException "Module (%addr%) not found!" with the key's text.
  [[noreturn]] static void throwNoSuchModule(const cComponentAddr& address, QEL_QCS_WHERE);
  [[noreturn]] static void throwNoSuchModule(const cComponentLocation& location, QEL_QCS_WHERE);
  [[noreturn]] static void throwNoSuchModule(const qstd::cAsciiString& name, QEL_QCS_WHERE);
  // cNoPublicInterfaceException "No public interface!".
  [[noreturn]] static void throwNoPublicInterface(const qrmi::cConnectable& object, QEL_QCS_WHERE);

  // cUnmatchedInterfaceException "Unmatched interface!".
  [[noreturn]] static void throwUnmatchedInterface(QEL_QCS_WHERE);
  // Runtime exception "Expecting ":"!" (the cause of a malformed address).
  [[noreturn]] static void throwExpectingColon(QEL_QCS_WHERE);
  // Runtime exception "Malformed component address ("%addr%")!" with `cause`
  // linked.
  [[noreturn]] static void throwMalformedComponentAddress(const qstd::cAsciiString& text,
                                                          const qstd::cAbstractException& cause, QEL_QCS_WHERE);
  // Runtime exception "No application object set!".
  [[noreturn]] static void throwNoApplication(QEL_QCS_WHERE);
  // Runtime exception "Unknown remote exception of type %type%!".
  [[noreturn]] static void throwUnknownRemoteException(const qstd::cAsciiString& typeName, QEL_QCS_WHERE);
};

#undef QEL_QCS_WHERE

}  // namespace qcs

#endif
