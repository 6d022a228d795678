// Random bytes and what file permissions tell, Windows.
#include <windows.h>
// windows.h first: bcrypt.h needs its types.
#include <bcrypt.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/std/cstdexceptions.h"

namespace qpi {

void cPlatform::randomBytes(void* data, unsigned int size) {
  const LONG status = BCryptGenRandom(nullptr, static_cast<PUCHAR>(data), size, BCRYPT_USE_SYSTEM_PREFERRED_RNG);
  if (status < 0) qstd::cSTDExceptions::throwOSError("BCryptGenRandom", static_cast<int>(status));
}

bool cPlatform::permissionsShowReaders() { return false; }

}  // namespace qpi
