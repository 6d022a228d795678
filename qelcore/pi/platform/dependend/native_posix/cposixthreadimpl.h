// A POSIX thread for cPlatform::createThread: started with a stack of one
// mebibyte; stop() joins it.
#ifndef QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXTHREADIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXTHREADIMPL_H

#include <pthread.h>

#include "qelcore/pi/cabstractrunnableimpl.h"

namespace qpi {

class cPosixThreadImpl : public cAbstractRunnableImpl {
public:
  cPosixThreadImpl(void (*fn)(void*), void* arg);
  ~cPosixThreadImpl() override;

  void start() override;
  void stop() override;

private:
  static void* entry(void* self);

  void (*mpfnThread)(void*);
  void* mpArg;
  pthread_t mThread;
  bool mbRunning;
};

}  // namespace qpi

#endif
