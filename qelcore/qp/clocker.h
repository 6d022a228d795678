/// \class qp::cLocker
/// A lock shared between threads, taken through scoped guards.
///
/// \code
///   qp::cLocker mutex;
///   {
///     qp::cLocker::cLock guard(mutex.lock());   // held until the end of the block
///     ...
///     {
///       qp::cLocker::cUnlock open(mutex.unlock());   // released in here...
///       waitForSomething();
///     }                                              // ...and taken again
///   }
///   qp::cLocker::cLock attempt(mutex.tryLock());
///   if (attempt.isLocked()) ...
/// \endcode
///
/// lock(), tryLock() and unlock() only build the request; the guard built from
/// it does the locking (`qp::cLocker::cLock guard = mutex.lock();` works too). The mutex is recursive. tryLock() really tries on
/// POSIX systems; on Windows it is not supported and the guard throws.
///
/// The two cUnlock constructors differ on purpose: cUnlock(mutex.unlock())
/// releases the mutex, cUnlock(&mutex) does not; both take it once more when
/// they go. Likewise cLock(&mutex) locks, and cLock(nullptr) locks nothing.
#ifndef QELCORE_QP_CLOCKER_H
#define QELCORE_QP_CLOCKER_H

#include "qelcore/pi/cabstractmuteximpl.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qp {

class QEL_EXPORT cLocker {
public:
  /// A request to lock (or to try to).
  struct cLockRef {
    cLocker* mpLocker;  ///< the locker to take
    bool mbTry;         ///< only try: the guard may end up not holding it
  };
  /// A request to unlock.
  struct cUnlockRef {
    cLocker* mpLocker;  ///< the locker to release
  };

  /// Holds the locker from construction to destruction.
  class cLock {
  public:
    /// Takes (or tries to take) the locker of the request.
    cLock(const cLockRef& r) : mpLocker(r.mpLocker), mbLocked(true) {
      if (r.mbTry)
        mbLocked = mpLocker->doTryLock();
      else
        mpLocker->doLock();
    }
    /// Takes `locker`; null takes nothing.
    explicit cLock(cLocker* locker) : mpLocker(locker), mbLocked(true) {
      if (mpLocker) mpLocker->doLock();
    }
    cLock(const cLock&) = delete;
    cLock& operator=(const cLock&) = delete;
    ~cLock() {
      if (mpLocker && mbLocked) mpLocker->doUnlock();
    }
    /// False only when a try did not get the locker.
    bool isLocked() const { return mbLocked; }

  private:
    cLocker* mpLocker;
    bool mbLocked;
  };

  /// Releases a held locker for its lifetime (reference form only) and takes
  /// it again at the end (both forms).
  class cUnlock {
  public:
    /// Releases the locker of the request now.
    cUnlock(const cUnlockRef& r) : mpLocker(r.mpLocker) { mpLocker->doUnlock(); }
    /// Releases nothing; takes `locker` (unless null) once more at the end.
    explicit cUnlock(cLocker* locker) : mpLocker(locker) {
      if (mpLocker) mpLocker->unlock();
    }
    cUnlock(const cUnlock&) = delete;
    cUnlock& operator=(const cUnlock&) = delete;
    ~cUnlock() {
      if (mpLocker) mpLocker->doLock();
    }

  private:
    cLocker* mpLocker;
  };

  /// A new recursive mutex of the platform.
  cLocker();
  cLocker(const cLocker&) = delete;
  cLocker& operator=(const cLocker&) = delete;
  ~cLocker();

  /// A request for cLock to take the locker.
  cLockRef lock() { return cLockRef{this, false}; }
  /// A request for cLock to try to take it (see cLock::isLocked()).
  cLockRef tryLock() { return cLockRef{this, true}; }
  /// A request for cUnlock to release it for a while.
  cUnlockRef unlock() { return cUnlockRef{this}; }

  /// Takes the mutex now; the guards call it. Prefer a guard.
  void doLock() { mpMutex->lock(); }
  /// Tries to take it; whether it was taken.
  bool doTryLock() { return mpMutex->tryLock(); }
  /// Releases it once.
  void doUnlock() { mpMutex->unlock(); }

private:
  qstd::tAutoPtr<qpi::cAbstractMutexImpl> mpMutex;
};

}  // namespace qp

#endif
