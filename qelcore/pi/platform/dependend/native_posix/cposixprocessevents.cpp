#include "qelcore/pi/platform/dependend/native_posix/cposixprocessevents.h"

#include <errno.h>
#include <time.h>

#include "qelcore/pi/cwork.h"

namespace qpi {

void cPosixProcessEvents::yield(unsigned int, tJobs&, unsigned int waitMs) {
  if (waitMs != 0) {
    struct timespec left;
    left.tv_sec = static_cast<time_t>(waitMs / 1000);
    left.tv_nsec = static_cast<long>(waitMs % 1000) * 1000000l;
    // Signals interrupt the sleep; the rest is slept all the same.
    while (::nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
  }
  sigFinished();
}

}  // namespace qpi
