#include "qelcore/pi/cpiexceptions.h"

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cunsupportedplatformexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qpi {

using qucs::cLIMessage;

void cPIExceptions::throwNoProcessEvents(const char* file, unsigned int line) {
  throw qstd::cBugException(cLIMessage("$QTR$No process event manager for workqueue!"), file, line);
}

void cPIExceptions::throwAmuckWork(const qstd::cAsciiString& name, const char* file, unsigned int line) {
  throw qstd::cBugException(cLIMessage("$QTR$Stopping amuck work \"%name%\"!") << name, file, line);
}

void cPIExceptions::throwNoAIOData(const char* file, unsigned int line) {
  throw qstd::cBugException(cLIMessage("$QTR$Work does not own asynchronous I/O data!"), file, line);
}

void cPIExceptions::throwNoFdAIOData(const char* file, unsigned int line) {
  throw qstd::cBugException(cLIMessage("$QTR$Asynchronous I/O data does not have file descriptor information!"), file,
                            line);
}

void cPIExceptions::throwNoApp(const char* file, unsigned int line) {
  throw qstd::cBugException(cLIMessage("$QTR$No application object set!"), file, line);
}

void cPIExceptions::throwUnsupportedPlatform(const char* operation, const char* file, unsigned int line) {
  throw cUnsupportedPlatformException(operation, file, line);
}

void cPIExceptions::throwTryLockUnsupported(const char* file, unsigned int line) {
  throw qstd::cRuntimeException(cLIMessage("$QTR$Trylock is not supported on win32 yet!"), file, line);
}

void cPIExceptions::throwNoOsPath(const char* file, unsigned int line) {
  throw qstd::cRuntimeException(cLIMessage("$QTR$Unable to find out os specific path!"), file, line);
}

void cPIExceptions::throwOSError(const char* operation, int code, const char* text, const char* file,
                                 unsigned int line) {
  qstd::cOSErrorException e(qstd::cAsciiString(operation), code, file, line);
  e.link(qstd::cRuntimeException(cLIMessage(qstd::cAsciiString("$QTR$") + text), file, line));
  throw e;
}

void cPIExceptions::throwSocketError(const char* operation, int code, const char* file, unsigned int line) {
  qstd::cOSErrorException e(qstd::cAsciiString(operation), code, file, line);
  e.link(qstd::cRuntimeException(cLIMessage("$QTR$Network operation \"%operation%\" failed: %error%")
                                     << operation << cPlatform::osFileIOErrorString(code),
                                 file, line));
  throw e;
}

}  // namespace qpi
