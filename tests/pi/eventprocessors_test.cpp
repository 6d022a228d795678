// The event processors and local loops that do a queue's waiting.
#include <gtest/gtest.h>

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/clocaleventprocessor.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/ctime.h"

#include "support/worktestutil.h"

using qeltest::cJob;
using qpi::cAbstractProcessEvents;
using qpi::cWork;
using qsa::piVoid;

namespace {

class cFinishCounter : public qrmi::cConnectable {
public:
  int finished = 0;
  piVoid sltFinished() {
    ++finished;
    return piVoid();
  }
};

}  // namespace

TEST(LocalEventProcessor, ReturnsAtOnceWhileTheQueueHoldsWork) {
  qpi::cLocalEventProcessor events;
  cFinishCounter counter;
  events.sigFinished.connect(counter, &cFinishCounter::sltFinished);
  cAbstractProcessEvents::tJobs jobs;
  cWork w;
  jobs.append(qstd::tSharedObject<cWork>(w));
  const qstd::cTime start;
  events.yield(1, jobs, 60000);
  EXPECT_LT(start.diff().toMSec(), 30000u);
  EXPECT_EQ(counter.finished, 1);
  EXPECT_FALSE(events.supportsAIO());
  EXPECT_FALSE(events.isAsynchronous());
}

TEST(LocalEventProcessor, WaitsForAnEmptyQueueUntilTheTimeIsUpOrItIsWoken) {
  qpi::cLocalEventProcessor events;
  cFinishCounter counter;
  events.sigFinished.connect(counter, &cFinishCounter::sltFinished);
  cAbstractProcessEvents::tJobs none;

  qstd::cTime start;
  events.yield(0, none, 20);
  EXPECT_GE(start.diff().toMSec(), 20u);
  EXPECT_EQ(counter.finished, 1);

  // A wake-up set before the wait ends it after the first slice, and is
  // used up by it.
  events.wakeUp();
  start = qstd::cTime();
  events.yield(0, none, 60000);
  EXPECT_LT(start.diff().toMSec(), 30000u);
  EXPECT_EQ(counter.finished, 2);
  start = qstd::cTime();
  events.yield(0, none, 0);
  EXPECT_EQ(counter.finished, 3);
}

TEST(PlatformProcessEvents, SleepsThroughTheWholeWaitAndCannotBeWoken) {
  qstd::tAutoPtr<cAbstractProcessEvents> events(qpi::cPlatform::createProcessEvents());
  cFinishCounter counter;
  events->sigFinished.connect(counter, &cFinishCounter::sltFinished);
  EXPECT_FALSE(events->supportsAIO());
  EXPECT_FALSE(events->isAsynchronous());
  cAbstractProcessEvents::tJobs jobs;
  cWork w;
  jobs.append(qstd::tSharedObject<cWork>(w));

  events->wakeUp();
  qstd::cTime start;
  events->yield(1, jobs, 30);
  EXPECT_GE(start.diff().toMSec(), 29u);
  EXPECT_EQ(counter.finished, 1);
  events->yield(1, jobs, 0);
  EXPECT_EQ(counter.finished, 2);
}

TEST(PlatformProcessEvents, DriveATimedWorkThroughTheQueue) {
  qeltest::cTestQueue q(qpi::cPlatform::createProcessEvents().release());
  cJob job;
  qstd::tSharedObject<cWork> w = qeltest::makeJob(q, job, "later");
  w->start(20, cWork::SingleTask);
  const qstd::cTime start;
  q.process();  // waits until the work is due
  q.process();  // runs it
  EXPECT_EQ(job.calls, 1);
  EXPECT_GE(start.diff().toMSec(), 18u) << "due within the millisecond it was planned for";
}

TEST(LocalEventLoop, CountsOnItsQueueAndDetachesWhenTheQueueDies) {
  cJob job;
  qpi::cLocalEventLoop* survivor = nullptr;
  {
    qeltest::cTestQueue q;
    qstd::tSharedObject<cWork> w = qeltest::makeJob(q, job, "w");
    w->start(0, cWork::Periodic);
    qpi::cLocalEventLoop loop(&q);
    EXPECT_EQ(loop.queue(), &q);
    loop.process();
    EXPECT_EQ(job.calls, 1);
    survivor = new qpi::cLocalEventLoop(&q);
  }
  EXPECT_EQ(survivor->queue(), nullptr);
  survivor->process();
  delete survivor;
  EXPECT_EQ(job.calls, 1);

  qpi::cLocalEventLoop main;
  EXPECT_EQ(main.queue(), &qpi::system().workQueue());
}
