#include "qelcore/std/ctimer.h"

#include "qelcore/pi/schedule.h"

namespace qstd {

cTimer::cTimer() : mbElapsed(false) {
  sigElapsed.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  mWork.sigTrigger.connect(*this, &cTimer::sltPoll);
  mWork.setName("qstd::cTimer");
}

cTimer::cTimer(unsigned int interval) : mbElapsed(false) {
  sigElapsed.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  setInterval(interval);
}

cTimer::~cTimer() {}

void cTimer::startWork(unsigned int ms, qpi::cWork::Type type) {
  mbElapsed = false;
  qpi::schedule(mWork);
  mWork.start(ms, type);
}

void cTimer::setInterval(unsigned int ms) { startWork(ms, qpi::cWork::Periodic); }

void cTimer::setSingleShot(unsigned int ms) { startWork(ms, qpi::cWork::SingleTask); }

void cTimer::reset() {
  mbElapsed = false;
  mWork.stop();
}

qsa::piVoid cTimer::sltPoll() {
  mbElapsed = true;
  sigElapsed();
  if (mWork.type() == qpi::cWork::Periodic) mbElapsed = false;
  return qsa::piVoid();
}

}  // namespace qstd
