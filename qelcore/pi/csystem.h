/// \class qpi::cSystem
/// The process-wide system object: the main work queue, the default number
/// format and encoder, the file system, the core extensions, the locale, the
/// debug output and the application object, reached through qpi::system().
///
/// \code
///   int main() {
///     cMyApp app;
///     qpi::system().setApp(&app);
///     qpi::schedule(qrmi::cDirectLocalSlotCall0<cMyApp, qsa::piVoid>(app, &cMyApp::sltStart, nullptr), 0, "start");
///     while (app.running()) qpi::system().exec();     // one pass per call
///     qpi::cSystem::cleanup();
///   }
/// \endcode
///
/// The first qpi::system() creates everything (on one thread, before others
/// start); cleanup() releases the objects registered with releaseAtCleanup()
/// in reverse order and destroys it all; a later system() starts afresh.
/// The main queue's processor is cPlatform::createProcessEvents(). The debug
/// output is the process-wide one (cAbstractOut::current()).
#ifndef QELCORE_PI_CSYSTEM_H
#define QELCORE_PI_CSYSTEM_H

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {
class cNumberConversionFormat;
}
namespace qucs {
class cAbstractEnDec;
class cLILocale;
}  // namespace qucs
namespace qio {
class cFs;
}
namespace qce {
class cCoreExtensionMgr;
}

namespace qpi {

class cAbstractOut;
class cAbstractQELApp;
class cWorkQueue;

class QEL_EXPORT cSystem {
public:
  /// The defaults every part of the process starts from.
  struct cDefaults {
    /// How numbers are written and read.
    const qstd::cNumberConversionFormat& numberFormat;
    /// UTF-8.
    const qucs::cAbstractEnDec& encoder;
  };

  /// Anything that must go at cleanup; see releaseAtCleanup().
  class QEL_EXPORT cReleasable {
  public:
    virtual ~cReleasable();
  };

  cSystem(const cSystem&) = delete;
  cSystem& operator=(const cSystem&) = delete;

  /// The defaults.
  const cDefaults& defaults() const { return mDefaults; }
  /// The system's file system: a qio::cProxyFs with the native file system
  /// mounted at "/" (qio::cProxyFs::system() mounts more).
  qio::cFs& fs() { return mFs; }
  /// The locale that translates messages.
  qucs::cLILocale& locale() { return mLocale; }
  /// The main work queue: the application's main loop.
  cWorkQueue& workQueue() { return mWorkQueue; }
  /// The debug output (cAbstractOut::current()).
  cAbstractOut& out();
  /// The process's core extensions, starting with the library's own (see
  /// qce::cCoreExtensionMgr).
  qce::cCoreExtensionMgr& coreExtensions() { return mCoreExtensions; }

  /// The application object (not owned; null forgets it).
  void setApp(cAbstractQELApp* app);
  /// cBugException "No application object set!" without one.
  cAbstractQELApp& app() const;
  /// Whether an application object is set.
  bool hasApp() const;

  /// One process() of the main work queue.
  void exec();

  /// Deletes `object` at cleanup(); the last one registered goes first.
  void releaseAtCleanup(qstd::tAutoPtr<cReleasable> object);
  /// Deletes `object` (any class) at cleanup(), in the same order.
  template <class T>
  void releaseAtCleanup(T* object) {
    releaseAtCleanup(qstd::tAutoPtr<cReleasable>(new tHolder<T>(object)));
  }

  /// Unloads the plug-ins of the core extension manager, releases the
  /// registered objects and destroys the system object; nothing happens when
  /// there is none.
  static void cleanup();
  /// Whether the system object exists now (system() would not create it).
  static bool exists();

private:
  friend QEL_EXPORT cSystem& system();
  struct cRecord;

  template <class T>
  class tHolder : public cReleasable {
  public:
    explicit tHolder(T* object) : mpObject(object) {}
    ~tHolder() override { delete mpObject; }

  private:
    T* mpObject;
  };

  explicit cSystem(cRecord& record);
  ~cSystem();

  cRecord& mRecord;
  cDefaults mDefaults;
  qio::cFs& mFs;
  qce::cCoreExtensionMgr& mCoreExtensions;
  qucs::cLILocale& mLocale;
  cWorkQueue& mWorkQueue;
};

/// The system object, created on first use.
QEL_EXPORT cSystem& system();

}  // namespace qpi

#endif
