#include "qelcore/pi/platform/dependend/native_win32/cwin32muteximpl.h"

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

bool cWin32MutexImpl::tryLock() { cPIExceptions::throwTryLockUnsupported(__FILE__, __LINE__); }

}  // namespace qpi
