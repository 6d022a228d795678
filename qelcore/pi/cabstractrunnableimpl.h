/// \class qpi::cAbstractRunnableImpl
/// A platform thread as the library sees it: cPlatform::createThread() makes
/// one for a function and its argument; start() runs the function on a new
/// thread, stop() waits until that thread has left the function.
///
/// \code
///   qstd::tAutoPtr<qpi::cAbstractRunnableImpl> t(qpi::cPlatform::createThread(&work, &data));
///   t->start();
///   ...            // work(&data) runs on its own thread
///   t->stop();     // returns once work() has returned
/// \endcode
///
/// Runnables (qp::cAbstractRunnable) are the friendly way to use threads; this
/// interface is what they are built on.
#ifndef QELCORE_PI_CABSTRACTRUNNABLEIMPL_H
#define QELCORE_PI_CABSTRACTRUNNABLEIMPL_H

#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cAbstractRunnableImpl {
public:
  cAbstractRunnableImpl() {}
  cAbstractRunnableImpl(const cAbstractRunnableImpl&) = delete;
  cAbstractRunnableImpl& operator=(const cAbstractRunnableImpl&) = delete;
  /// Waits for a running thread as stop() does.
  virtual ~cAbstractRunnableImpl();

  /// Starts a new thread; a thread that this object started before is
  /// stopped first. cOSErrorException when the system refuses.
  virtual void start() = 0;
  /// Waits until the thread has left its function and releases it; nothing
  /// happens when no thread runs. The function is expected to return on its
  /// own: stop() does not interrupt it.
  virtual void stop() = 0;
};

}  // namespace qpi

#endif
