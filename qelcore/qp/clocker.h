// A lock shared between threads, taken through scoped guards.
//
//   qp::cLocker mutex;
//   {
//     qp::cLocker::cLock guard(mutex.lock());   // held until the end of the block
//     ...
//     {
//       qp::cLocker::cUnlock open(mutex.unlock());   // released in here...
//       waitForSomething();
//     }                                              // ...and taken again
//   }
//   qp::cLocker::cLock attempt(mutex.tryLock());
//   if (attempt.isLocked()) ...
//
// lock(), tryLock() and unlock() only build the request; the guard built from
// it does the locking. The mutex is recursive. tryLock() really tries on
// POSIX systems; on Windows it is not supported and the guard throws.
//
// The two cUnlock constructors differ on purpose: cUnlock(mutex.unlock())
// releases the mutex, cUnlock(&mutex) does not; both take it once more when
// they go. Likewise cLock(&mutex) locks, and cLock(nullptr) locks nothing.
#ifndef QELCORE_QP_CLOCKER_H
#define QELCORE_QP_CLOCKER_H

#include "qelcore/pi/cabstractmuteximpl.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qp {

class QEL_EXPORT cLocker {
public:
  // A request to lock (or to try to).
  struct cLockRef {
    cLocker* mpLocker;
    bool mbTry;
  };
  // A request to unlock.
  struct cUnlockRef {
    cLocker* mpLocker;
  };

  // Holds the locker from construction to destruction.
  class cLock {
  public:
    explicit cLock(const cLockRef& r) : mpLocker(r.mpLocker), mbLocked(true) {
      if (r.mbTry)
        mbLocked = mpLocker->doTryLock();
      else
        mpLocker->doLock();
    }
    explicit cLock(cLocker* locker) : mpLocker(locker), mbLocked(true) {
      if (mpLocker) mpLocker->doLock();
    }
    cLock(const cLock&) = delete;
    cLock& operator=(const cLock&) = delete;
    ~cLock() {
      if (mpLocker && mbLocked) mpLocker->doUnlock();
    }
    bool isLocked() const { return mbLocked; }

  private:
    cLocker* mpLocker;
    bool mbLocked;
  };

  // Releases a held locker for its lifetime (reference form only) and takes
  // it again at the end (both forms).
  class cUnlock {
  public:
    explicit cUnlock(const cUnlockRef& r) : mpLocker(r.mpLocker) { mpLocker->doUnlock(); }
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

  cLocker();
  cLocker(const cLocker&) = delete;
  cLocker& operator=(const cLocker&) = delete;
  ~cLocker();

  cLockRef lock() { return cLockRef{this, false}; }
  cLockRef tryLock() { return cLockRef{this, true}; }
  cUnlockRef unlock() { return cUnlockRef{this}; }

  void doLock() { mpMutex->lock(); }
  bool doTryLock() { return mpMutex->tryLock(); }
  void doUnlock() { mpMutex->unlock(); }

private:
  qstd::tAutoPtr<qpi::cAbstractMutexImpl> mpMutex;
};

}  // namespace qp

#endif
