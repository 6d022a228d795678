// The throw functions of the platform interface: the work queue, the event
// processors, the platform factory and the system object. Each takes the
// source file and line of the code that detected the failure.
#ifndef QELCORE_PI_CPIEXCEPTIONS_H
#define QELCORE_PI_CPIEXCEPTIONS_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
}

namespace qpi {

class QEL_EXPORT cPIExceptions {
public:
  // cBugException "No process event manager for workqueue!".
  [[noreturn]] static void throwNoProcessEvents(const char* file, unsigned int line);
  // cBugException "Stopping amuck work "%name%"!".
  [[noreturn]] static void throwAmuckWork(const qstd::cAsciiString& name, const char* file, unsigned int line);
  // cBugException "Work does not own asynchronous I/O data!".
  [[noreturn]] static void throwNoAIOData(const char* file, unsigned int line);
  // cBugException "Asynchronous I/O data does not have file descriptor information!".
  [[noreturn]] static void throwNoFdAIOData(const char* file, unsigned int line);
  // cBugException "No application object set!".
  [[noreturn]] static void throwNoApp(const char* file, unsigned int line);
  // cUnsupportedPlatformException "Operation ("%operation%") not supported for this platform!".
  [[noreturn]] static void throwUnsupportedPlatform(const char* operation, const char* file, unsigned int line);
  // cRuntimeException "Trylock is not supported on win32 yet!".
  [[noreturn]] static void throwTryLockUnsupported(const char* file, unsigned int line);
  // cRuntimeException "Unable to find out os specific path!".
  [[noreturn]] static void throwNoOsPath(const char* file, unsigned int line);
  // cOSErrorException for `operation` with the system's error code, with a
  // cRuntimeException carrying `text` linked as its cause.
  [[noreturn]] static void throwOSError(const char* operation, int code, const char* text, const char* file,
                                        unsigned int line);
  // cOSErrorException for the socket operation `operation` with the system's
  // error code, with a cRuntimeException carrying the system's text for it,
  // "Network operation "%operation%" failed: %error%", linked as its cause.
  [[noreturn]] static void throwSocketError(const char* operation, int code, const char* file, unsigned int line);
};

}  // namespace qpi

#endif
