// A Windows thread for cPlatform::createThread: created suspended with a
// stack of one mebibyte, then resumed. stop() suspends the thread and waits
// for it, so it must only be called once the thread function has returned.
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32THREADIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32THREADIMPL_H

#include <windows.h>

#include "qelcore/pi/cabstractrunnableimpl.h"

namespace qpi {

class cWin32ThreadImpl : public cAbstractRunnableImpl {
public:
  cWin32ThreadImpl(void (*fn)(void*), void* arg);
  ~cWin32ThreadImpl() override;

  void start() override;
  void stop() override;

private:
  static unsigned __stdcall entry(void* self);

  void (*mpfnThread)(void*);
  void* mpArg;
  HANDLE mhThread;
  bool mbRunning;
  unsigned int miThreadId;
};

}  // namespace qpi

#endif
