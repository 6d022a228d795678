#include "qelcore/pi/cworkstat.h"

#include "qelcore/pi/cabstractout.h"

namespace qpi {

cWorkStat::cWorkStat(bool debug) : miStarted(0), miTriggered(0), mpDebug(nullptr) { setDebug(debug); }

cWorkStat::~cWorkStat() { delete mpDebug; }

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
