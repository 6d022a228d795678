#include "qelcore/pi/platform/dependend/native_posix/cposixmuteximpl.h"

namespace qpi {

cPosixMutexImpl::cPosixMutexImpl() {
  pthread_mutexattr_t attr;
  ::pthread_mutexattr_init(&attr);
  ::pthread_mutexattr_settype(&attr, PTHREAD_MUTEX_RECURSIVE);
  ::pthread_mutex_init(&mMutex, &attr);
  ::pthread_mutexattr_destroy(&attr);
}

cPosixMutexImpl::~cPosixMutexImpl() { ::pthread_mutex_destroy(&mMutex); }

}  // namespace qpi
