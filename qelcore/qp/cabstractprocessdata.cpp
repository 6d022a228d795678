#include "qelcore/qp/cabstractprocessdata.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/qp/clocker.h"

namespace qp {

cAbstractProcessData::cAbstractProcessData(cLocker* locker)
    : mpLocker(locker),
      mpContextLocker(nullptr),
      mpContextLocker2(nullptr),
      meContext(cAbstractProcess::ContextNone),
      mePreferred(cAbstractProcess::ContextThread),
      mbCanceled(false),
      mbFinished(false),
      mbRunning(false) {}

cAbstractProcessData::~cAbstractProcessData() {}

void cAbstractProcessData::restart() {
  cLocker::cLock guard(mpContextLocker);
  QEL_TRACE("cAbstractProcessData::restart(): Setting running flag...");
  mbRunning = true;
  mbFinished = false;
  mbCanceled = false;
  QEL_TRACE("cAbstractProcessData::restart(): -- unlock --");
}

bool cAbstractProcessData::isRunning() const {
  cLocker::cLock guard(mpContextLocker);
  return mbRunning;
}

bool cAbstractProcessData::isFinished() const {
  cLocker::cLock guard(mpContextLocker);
  return mbFinished;
}

bool cAbstractProcessData::isCanceled() const {
  cLocker::cLock guard(mpContextLocker);
  return mbCanceled;
}

void cAbstractProcessData::setFinished() {
  cLocker::cLock guard(mpContextLocker);
  mbFinished = true;
  mbRunning = false;
}

void cAbstractProcessData::cancel() {
  cLocker::cLock guard(mpContextLocker);
  mbCanceled = true;
}

void cAbstractProcessData::setContext(Context context, cLocker* first, cLocker* second) {
  meContext = context;
  mpContextLocker = first;
  mpContextLocker2 = second;
}

}  // namespace qp
