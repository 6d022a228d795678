#include "qelcore/qp/cabstractrunnable.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cabstractrunnableimpl.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qp/clocker.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/ucs/cstring.h"

namespace qp {

struct cAbstractRunnable::cData {
  int miState = Idle;
  cLocker mLocker;
  qstd::tAutoPtr<qpi::cAbstractRunnableImpl> mpThread;

  void set(int state) {
    cLocker::cLock guard(mLocker.lock());
    miState = state;
  }
};

cAbstractRunnable::cAbstractRunnable() : mpData(new cData) {}

cAbstractRunnable::~cAbstractRunnable() {
  try {
    stop();
  } catch (...) {
    // The thread is gone either way.
  }
  delete mpData;
}

void cAbstractRunnable::run() {}

void cAbstractRunnable::start() {
  if (mpData->mpThread) {
    mpData->mpThread->stop();
    mpData->mpThread.reset(nullptr, qstd::tAutoPtrType::SingleObject);
  }
  // No thread of this runnable exists now: nobody else reads the state.
  mpData->miState = Starting;
  mpData->mpThread = qpi::cPlatform::createThread(&cAbstractRunnable::threadEntry, this);
  try {
    mpData->mpThread->start();
  } catch (...) {
    mpData->miState = Idle;
    throw;
  }
}

void cAbstractRunnable::threadEntry(void* self) {
  cAbstractRunnable* runnable = static_cast<cAbstractRunnable*>(self);
  {
    // A stop() that came before the thread got here stays in force.
    cLocker::cLock guard(runnable->mpData->mLocker.lock());
    if (runnable->mpData->miState == Starting) runnable->mpData->miState = Running;
  }
  try {
    runnable->run();
  } catch (const qstd::cAbstractException& e) {
    qucs::cString text;
    e.createMessage(text, qucs::cString(": "), qstd::cAbstractException::MessageWithHistory, nullptr);
    QEL_ERROR((qstd::cAsciiString("Runnable ended by an exception: ") + text.ascii()).c_str());
  } catch (...) {
    QEL_ERROR("Runnable ended by an unknown exception");
  }
  runnable->mpData->set(Finished);
}

void cAbstractRunnable::stop() {
  mpData->set(StopInProgress);
  if (mpData->mpThread) mpData->mpThread->stop();
}

int cAbstractRunnable::state() const {
  cLocker::cLock guard(mpData->mLocker.lock());
  return mpData->miState;
}

bool cAbstractRunnable::isActive() const {
  const int s = state();
  return s == Starting || s == Running || s == StopInProgress;
}

}  // namespace qp
