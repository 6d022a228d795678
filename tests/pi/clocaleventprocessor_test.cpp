#include "qelcore/pi/clocaleventprocessor.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/ctime.h"

#include "support/worktestutil.h"

using qpi::cAbstractProcessEvents;
using qpi::cWork;

TEST(LocalEventProcessor, ReturnsAtOnceWhileTheQueueHoldsWork) {
  qpi::cLocalEventProcessor events;
  qeltest::cFinishCounter counter;
  events.sigFinished.connect(counter, &qeltest::cFinishCounter::sltFinished);
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
  qeltest::cFinishCounter counter;
  events.sigFinished.connect(counter, &qeltest::cFinishCounter::sltFinished);
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
