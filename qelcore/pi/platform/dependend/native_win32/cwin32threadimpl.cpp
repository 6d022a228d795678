#include "qelcore/pi/platform/dependend/native_win32/cwin32threadimpl.h"

#include <process.h>

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

cWin32ThreadImpl::cWin32ThreadImpl(void (*fn)(void*), void* arg)
    : mpfnThread(fn), mpArg(arg), mhThread(nullptr), mbRunning(false), miThreadId(0) {}

cWin32ThreadImpl::~cWin32ThreadImpl() { stop(); }

unsigned __stdcall cWin32ThreadImpl::entry(void* self) {
  cWin32ThreadImpl* thread = static_cast<cWin32ThreadImpl*>(self);
  thread->mpfnThread(thread->mpArg);
  return 0;
}

void cWin32ThreadImpl::start() {
  stop();
  unsigned id = 0;
  uintptr_t handle = ::_beginthreadex(nullptr, 1048576, &cWin32ThreadImpl::entry, this, CREATE_SUSPENDED, &id);
  if (handle == 0)
    cPIExceptions::throwOSError("startThread", static_cast<int>(::GetLastError()), "Unable to create thread!", __FILE__,
                                __LINE__);
  mhThread = reinterpret_cast<HANDLE>(handle);
  miThreadId = id;
  ::ResumeThread(mhThread);
  mbRunning = true;
}

void cWin32ThreadImpl::stop() {
  if (mbRunning) {
    ::SuspendThread(mhThread);
    ::WaitForSingleObject(mhThread, INFINITE);
    ::CloseHandle(mhThread);
    mhThread = nullptr;
  }
  mbRunning = false;
  miThreadId = 0;
}

}  // namespace qpi
