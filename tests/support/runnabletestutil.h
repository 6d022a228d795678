// Waiting for runnables in tests.
#ifndef QELCORE_TESTS_SUPPORT_RUNNABLETESTUTIL_H
#define QELCORE_TESTS_SUPPORT_RUNNABLETESTUTIL_H

#include "qelcore/pi/cplatform.h"
#include "qelcore/qp/cabstractrunnable.h"

namespace qeltest {

// Waits until run() has returned. On Windows stopping suspends the thread
// before waiting for it, so the thread also gets a moment to leave its
// entry function before anyone stops it.
inline void waitFinished(const qp::cAbstractRunnable& r) {
  while (r.state() != qp::cAbstractRunnable::Finished) qpi::cPlatform::yield();
  for (int i = 0; i < 10; ++i) qpi::cPlatform::yield();
}

}  // namespace qeltest

#endif
