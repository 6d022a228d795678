#include "qelcore/pi/cworkstat.h"

#include "qelcore/pi/cabstractout.h"

namespace qpi {

void cWorkStat::setDebug(bool on) {
  if (on && !mpDebug) {
    mpDebug = new cDebugInfo;
  } else if (!on && mpDebug) {
    delete mpDebug;
    mpDebug = nullptr;
  }
}

void cWorkStat::recordStart() {
  mpDebug->lastStart = qstd::cTime();
  // Skip this function and notifyStart's caller inside the work.
  mpDebug->startTraceLength = cAbstractOut::captureBacktrace(mpDebug->startTrace, MaxStartTrace, 1);
}

}  // namespace qpi
