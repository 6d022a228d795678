/// \class qpi::cPlatform
/// The platform factory and the small operating-system queries.
///
/// cPlatform is the only place that creates platform implementations; the
/// rest of the library holds the abstract types it returns and never names a
/// platform class.
///
/// \code
///   qstd::tAutoPtr<qpi::cAbstractMutexImpl> m(qpi::cPlatform::createMutexImpl());
///   qstd::cAsciiString user = qpi::cPlatform::userName();     // "USER" or "unknown"
///   qucs::cString home = qpi::cPlatform::homeDirectory();
/// \endcode
///
/// Special folders: on Windows the user's documents folder, the Windows
/// directory and the programs folder. On POSIX systems homeDirectory() is
/// $HOME (or the home directory of the user's account when it is not set),
/// osDirectory() is "/usr" and applicationsDirectory() is "/opt". Each throws
/// cRuntimeException "Unable to find out os specific path!" when the system
/// cannot tell.
#ifndef QELCORE_PI_CPLATFORM_H
#define QELCORE_PI_CPLATFORM_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tautoptr.h"

namespace qucs {
class cString;
}
namespace qio {
class cAbstractFsImpl;
class cFs;
}  // namespace qio

namespace qpi {

class cAbstractClassLoader;
class cAbstractRunnableImpl;
class cAbstractMutexImpl;
class cAbstractPlatformInfo;
class cAbstractProcessEvents;
class cAbstractSocketImpl;

class QEL_EXPORT cPlatform {
public:
  cPlatform() = delete;

  /// A thread that runs fn(arg) once started (see cAbstractRunnableImpl).
  static qstd::tAutoPtr<cAbstractRunnableImpl> createThread(void (*fn)(void*), void* arg);
  /// A recursive mutex (see cAbstractMutexImpl).
  static qstd::tAutoPtr<cAbstractMutexImpl> createMutexImpl();
  /// The platform's names and file naming (see cAbstractPlatformInfo).
  static qstd::tAutoPtr<cAbstractPlatformInfo> createPlatformInfo();
  /// The platform's event processor: sleeps through the whole wait of a pass
  /// in one call and cannot be woken early. The system's main queue uses it.
  static qstd::tAutoPtr<cAbstractProcessEvents> createProcessEvents();
  /// An event processor with asynchronous I/O: it waits on the descriptors
  /// (sockets on Windows) of the queue's asynchronous I/O works together with
  /// the queue's timed works, and another thread can wake it
  /// (cWorkQueue::post). Opt in with
  /// queue.setEvents(cPlatform::createAIOProcessEvents()).
  static qstd::tAutoPtr<cAbstractProcessEvents> createAIOProcessEvents();
  /// A closed non-blocking stream socket (TCP over IPv4 or IPv6, by the
  /// address it is connected or bound to; see cAbstractSocketImpl).
  static qstd::tAutoPtr<cAbstractSocketImpl> createSocketImpl();
  /// The native file system for `fs` (see qio::cFs).
  static qstd::tAutoPtr<qio::cAbstractFsImpl> createFsImpl(qio::cFs& fs);
  /// A class loader that has already opened and checked the module file
  /// `file`, taken as given (see cAbstractClassLoader); failures throw
  /// qcs::cModuleLoadException.
  static qstd::tAutoPtr<cAbstractClassLoader> createClassLoader(const qucs::cString& file);
  /// Where the library's own module files are installed: "qelcore/modules"
  /// beside the shared library on POSIX systems (lib/qelcore/modules), and
  /// "../lib/qelcore/modules" from the DLL's directory on Windows.
  static qucs::cString moduleDirectory();

  /// Sleeps one millisecond.
  static void yield();
  /// The process identifier.
  static unsigned int pid();
  /// The variable's value; empty when it is not set.
  static qstd::cAsciiString getEnv(const qstd::cAsciiString& name);
  /// The environment variable "USER", or "unknown".
  static qstd::cAsciiString userName();
  /// The host's name, or "unknown" when the system cannot tell.
  static qstd::cAsciiString hostname();
  /// Fills `size` bytes at `data` with random bytes from the operating
  /// system's generator (getrandom or /dev/urandom on POSIX systems,
  /// BCryptGenRandom on Windows); an OS error exception when it fails.
  static void randomBytes(void* data, unsigned int size);
  /// Whether file permissions show who besides the owner may read a file:
  /// true with POSIX mode bits; false on Windows, whose access lists the
  /// library does not read (its permissions only reflect the read-only flag).
  static bool permissionsShowReaders();
  /// The user's home (documents) folder; see the class comment.
  static qucs::cString homeDirectory();
  /// The system's directory; see the class comment.
  static qucs::cString osDirectory();
  /// The programs folder; see the class comment.
  static qucs::cString applicationsDirectory();
  /// '\\' on Windows, '/' on POSIX systems.
  static char osSpecificPathDelimiter();
  /// The system's text for an error code, on one line; "Unable to get error
  /// string!" when the system has none.
  static qstd::cAsciiString osFileIOErrorString(int code);
  /// Checks the type sizes the build relies on; a failed check throws the
  /// assertion's cBugException naming it.
  static void buildChecks();
};

}  // namespace qpi

#endif
