#include "qelcore/pi/platform/dependend/native_win32/cwin32processevents.h"

#include <windows.h>

#include "qelcore/pi/cwork.h"

namespace qpi {

void cWin32ProcessEvents::yield(unsigned int, tJobs&, unsigned int waitMs) {
  if (waitMs != 0) ::Sleep(waitMs);
  sigFinished();
}

}  // namespace qpi
