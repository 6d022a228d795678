/// \class qpi::cAbstractMutexImpl
/// The platform's lock: a recursive mutex that the owning thread may take
/// several times. Code takes it through qp::cLocker and its guards; this is
/// the interface cPlatform::createMutexImpl() returns.
///
/// \code
///   qstd::tAutoPtr<qpi::cAbstractMutexImpl> m(qpi::cPlatform::createMutexImpl());
///   m->lock();
///   m->lock();     // the same thread may lock again
///   m->unlock();
///   m->unlock();
/// \endcode
///
/// tryLock() takes the mutex when it is free and returns false otherwise on
/// POSIX systems; on Windows it is not supported and throws
/// cRuntimeException "Trylock is not supported on win32 yet!".
#ifndef QELCORE_PI_CABSTRACTMUTEXIMPL_H
#define QELCORE_PI_CABSTRACTMUTEXIMPL_H

#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cAbstractMutexImpl {
public:
  cAbstractMutexImpl() {}
  cAbstractMutexImpl(const cAbstractMutexImpl&) = delete;
  cAbstractMutexImpl& operator=(const cAbstractMutexImpl&) = delete;
  virtual ~cAbstractMutexImpl();

  virtual void lock() = 0;
  virtual bool tryLock() = 0;
  virtual void unlock() = 0;
};

}  // namespace qpi

#endif
