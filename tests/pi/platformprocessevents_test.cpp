// The platform's own event processor, as cPlatform::createProcessEvents()
// makes it.
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

TEST(PlatformProcessEvents, SleepsThroughTheWholeWaitAndCannotBeWoken) {
  qstd::tAutoPtr<cAbstractProcessEvents> events(qpi::cPlatform::createProcessEvents());
  qeltest::cFinishCounter counter;
  events->sigFinished.connect(counter, &qeltest::cFinishCounter::sltFinished);
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
