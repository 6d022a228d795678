// The Windows mutex behind cPlatform::createMutexImpl: a critical section
// (recursive). tryLock() is not supported and always throws.
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32MUTEXIMPL_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32MUTEXIMPL_H

#include <windows.h>

#include "qelcore/pi/cabstractmuteximpl.h"

namespace qpi {

class cWin32MutexImpl : public cAbstractMutexImpl {
public:
  cWin32MutexImpl() { ::InitializeCriticalSection(&mSection); }
  ~cWin32MutexImpl() override { ::DeleteCriticalSection(&mSection); }

  void lock() override { ::EnterCriticalSection(&mSection); }
  // cRuntimeException "Trylock is not supported on win32 yet!".
  bool tryLock() override;
  void unlock() override { ::LeaveCriticalSection(&mSection); }

private:
  CRITICAL_SECTION mSection;
};

}  // namespace qpi

#endif
