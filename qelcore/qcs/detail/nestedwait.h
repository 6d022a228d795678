// Waiting inside a work's action: nested passes of the system's work queue
// until a condition holds or a time has passed.
#ifndef QELCORE_QCS_DETAIL_NESTEDWAIT_H
#define QELCORE_QCS_DETAIL_NESTEDWAIT_H

#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/ctime.h"
#include "qelcore/std/tsharedobject.h"

namespace qcs {
namespace detail {

// Milliseconds between looks at the clock while waiting.
enum : unsigned int { WaitTick = 50 };

// Runs passes until done() is true (returns true) or `milliseconds` have
// passed (false). A pass waits for the next due work after running what is
// due, so a timer ticks until the deadline rather than firing once; the
// deadline is missed by a tick at most.
template <class F>
bool waitNested(F done, unsigned int milliseconds, const char* name) {
  if (done()) return true;
  const qstd::cTime deadline(qstd::cTime().get() + 1000ull * milliseconds);
  qpi::cWorkQueue& queue = qpi::system().workQueue();
  qstd::tSharedObject<qpi::cWork> tick = queue.createJob();
  tick->setName(name);
  tick->start(milliseconds < WaitTick ? milliseconds + 1 : static_cast<unsigned int>(WaitTick), qpi::cWork::Periodic);
  qpi::cLocalEventLoop loop(&queue);
  bool ok = false;
  while (!(ok = done()) && qstd::cTime() < deadline) loop.process();
  tick->stop();
  queue.removeJob(*tick);
  return ok;
}

}  // namespace detail
}  // namespace qcs

#endif
