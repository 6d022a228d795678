#include "qelcore/pi/platform/dependend/native_posix/cposixthreadimpl.h"

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

cPosixThreadImpl::cPosixThreadImpl(void (*fn)(void*), void* arg)
    : mpfnThread(fn), mpArg(arg), mThread(), mbRunning(false) {}

cPosixThreadImpl::~cPosixThreadImpl() { stop(); }

void* cPosixThreadImpl::entry(void* self) {
  cPosixThreadImpl* thread = static_cast<cPosixThreadImpl*>(self);
  thread->mpfnThread(thread->mpArg);
  return nullptr;
}

void cPosixThreadImpl::start() {
  stop();
  pthread_attr_t attr;
  int rc = ::pthread_attr_init(&attr);
  if (rc == 0) {
    rc = ::pthread_attr_setstacksize(&attr, 1048576);
    if (rc == 0) rc = ::pthread_create(&mThread, &attr, &cPosixThreadImpl::entry, this);
    ::pthread_attr_destroy(&attr);
  }
  if (rc != 0) cPIExceptions::throwOSError("startThread", rc, "Unable to create thread!", __FILE__, __LINE__);
  mbRunning = true;
}

void cPosixThreadImpl::stop() {
  if (!mbRunning) return;
  ::pthread_join(mThread, nullptr);
  mbRunning = false;
}

}  // namespace qpi
