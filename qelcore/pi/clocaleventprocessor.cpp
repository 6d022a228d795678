#include "qelcore/pi/clocaleventprocessor.h"

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/std/ctime.h"

namespace qpi {

cLocalEventProcessor::~cLocalEventProcessor() {}

void cLocalEventProcessor::yield(unsigned int, tJobs& jobs, unsigned int waitMs) {
  if (!jobs.empty()) {
    sigFinished();
    return;
  }
  const qstd::cTime start;
  for (;;) {
    if (start.diff().toMSec() >= waitMs) break;
    cPlatform::yield();
    if (mbWake) break;
  }
  mbWake = false;
  sigFinished();
}

}  // namespace qpi
