#include "qelcore/pi/schedule.h"

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"

#include "support/capturingout.h"
#include "support/worktestutil.h"

using qeltest::cJob;
using qpi::cSystem;
using qpi::cWork;

TEST(Schedule, PutsWorksOnTheMainQueue) {
  cSystem::cleanup();
  cJob job;
  qstd::tSharedObject<cWork> once =
      qpi::schedule(qrmi::cDirectLocalSlotCall0<cJob, qsa::piVoid>(job, &cJob::sltRun, nullptr), 0, "once");
  qstd::tSharedObject<cWork> tick = qpi::schedule(job, &cJob::sltRun, 0, cWork::Periodic, "tick");
  EXPECT_EQ(once->name(), "once");
  EXPECT_EQ(tick->type(), cWork::Periodic);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 2);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 3);

  cWork mine;
  EXPECT_EQ(&qpi::schedule(mine), &mine);
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 2u);
  qpi::unschedule(mine);
  qpi::unschedule(*tick);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 3);
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 0u);
  cSystem::cleanup();
  qpi::unschedule(mine);  // without a system: nothing to do
  EXPECT_FALSE(cSystem::exists());
}

TEST(Schedule, AWorkWithoutANameIsScheduledAfterTwoDebugLines) {
  cJob job;
  qeltest::cCapturingOut out;
  qstd::tSharedObject<cWork> w = qpi::schedule(job, &cJob::sltRun, 0, nullptr);
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].text, "Work scheduled without name!");
  EXPECT_TRUE(w->isStarted());
  qpi::system().exec();
  EXPECT_EQ(job.calls, 1);

  // The queue owns what schedule() was handed.
  qstd::tSharedObject<cWork> owned = qpi::schedule(qstd::tAutoPtr<cWork>(new cWork));
  EXPECT_EQ(owned.refCount(), 2u);
  cSystem::cleanup();
  EXPECT_TRUE(owned.unique());
}
