// The recursive POSIX mutex behind cPlatform::createMutexImpl.
#ifndef QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXMUTEXIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXMUTEXIMPL_H

#include <pthread.h>

#include "qelcore/pi/cabstractmuteximpl.h"

namespace qpi {

class cPosixMutexImpl : public cAbstractMutexImpl {
public:
  cPosixMutexImpl();
  ~cPosixMutexImpl() override;

  void lock() override { ::pthread_mutex_lock(&mMutex); }
  // Takes the mutex when it is free or already held by this thread.
  bool tryLock() override { return ::pthread_mutex_trylock(&mMutex) == 0; }
  void unlock() override { ::pthread_mutex_unlock(&mMutex); }

private:
  pthread_mutex_t mMutex;
};

}  // namespace qpi

#endif
