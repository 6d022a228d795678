// Helpers for tests of the work queue: a receiver that counts and runs a
// body, and event processors whose waits a test can read back.
#ifndef QELCORE_TESTS_SUPPORT_WORKTESTUTIL_H
#define QELCORE_TESTS_SUPPORT_WORKTESTUTIL_H

#include <functional>
#include <vector>

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/clocaleventprocessor.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/rmi/cconnectable.h"

namespace qeltest {

class cJob : public qrmi::cConnectable {
public:
  int calls = 0;
  std::function<void()> body;
  qsa::piVoid sltRun() {
    ++calls;
    if (body) body();
    return qsa::piVoid();
  }
};

// Counts the finished signals of an event processor.
class cFinishCounter : public qrmi::cConnectable {
public:
  int finished = 0;
  qsa::piVoid sltFinished() {
    ++finished;
    return qsa::piVoid();
  }
};

// Records every yield; never waits. `aio` makes it claim I/O support.
class cRecordingEvents : public qpi::cAbstractProcessEvents {
public:
  explicit cRecordingEvents(bool aio = false) : mbAIO(aio) {}
  bool supportsAIO() const override { return mbAIO; }
  bool isAsynchronous() const override { return false; }
  void yield(unsigned int, tJobs&, unsigned int waitMs) override {
    waits.push_back(waitMs);
    sigFinished();
  }
  void wakeUp() override { ++wakeUps; }

  std::vector<unsigned int> waits;
  int wakeUps = 0;

private:
  bool mbAIO;
};

// A queue with a local event processor (or the given one).
class cTestQueue : public qpi::cWorkQueue {
public:
  cTestQueue() { setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>(new qpi::cLocalEventProcessor)); }
  explicit cTestQueue(qpi::cAbstractProcessEvents* events) {
    setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>(events));
  }
};

// A new work on `q` named `name` that calls `job`.
inline qstd::tSharedObject<qpi::cWork> makeJob(qpi::cWorkQueue& q, cJob& job, const char* name) {
  qstd::tSharedObject<qpi::cWork> w = q.createJob();
  w->setName(name);
  w->sigTrigger.connect(job, &cJob::sltRun);
  return w;
}

// A periodic work "tick" that ran once and added a work "child" (not
// started) while it ran, then was restarted with an interval of 250 ms.
inline void tickWithChild(qpi::cWorkQueue& q, cJob& job, qstd::tSharedObject<qpi::cWork>& tick,
                          qstd::tSharedObject<qpi::cWork>& child) {
  tick = makeJob(q, job, "tick");
  job.body = [&q, &job, &child] {
    if (!child) child = makeJob(q, job, "child");
  };
  tick->start(0, qpi::cWork::Periodic);
  q.process();
  tick->start(250, qpi::cWork::Periodic);
}

}  // namespace qeltest

#endif
