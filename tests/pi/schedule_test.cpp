#include "qelcore/pi/schedule.h"

#include <vector>

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

TEST(Schedule, AReceiverMayDieWhileItsCallWaitsInAWork) {
  cSystem::cleanup();
  cJob* gone = new cJob;
  cJob stays;
  qstd::tSharedObject<cWork> orphan = qpi::schedule(*gone, &cJob::sltRun, 0, "orphan");
  qpi::schedule(*gone, &cJob::sltRun, 0, "dropped");
  qpi::schedule(stays, &cJob::sltRun, 0, "kept");
  EXPECT_EQ(stays.attachedSignals().size(), 1u);
  delete gone;  // takes its calls out of both works
  EXPECT_EQ(orphan->sigTrigger.slotCount(), 0u);
  qpi::system().exec();  // the works run empty and leave
  EXPECT_EQ(stays.calls, 1);
  EXPECT_TRUE(stays.attachedSignals().empty());
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 0u);
  EXPECT_FALSE(orphan->isStarted());
  cSystem::cleanup();
}

TEST(Schedule, WorksScheduledOrRestartedFromAnActionRunAtOnce) {
  cSystem::cleanup();
  // A continuation scheduled from an action runs in the same pass, as a
  // child of the work that scheduled it.
  cJob chain;
  std::vector<cWork*> parents;
  chain.body = [&] {
    parents.push_back(qpi::system().workQueue().current()->parent());
    if (chain.calls < 3) qpi::schedule(chain, &cJob::sltRun, 0, "continuation");
  };
  qstd::tSharedObject<cWork> first = qpi::schedule(chain, &cJob::sltRun, 0, "first");
  qpi::system().exec();
  EXPECT_EQ(chain.calls, 3);
  ASSERT_EQ(parents.size(), 3u);
  EXPECT_EQ(parents[0], nullptr);
  EXPECT_EQ(parents[1], first.get());
  EXPECT_NE(parents[2], nullptr);
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 0u);

  // A work that restarts itself from its action runs once in every pass.
  cJob again;
  qstd::tSharedObject<cWork> self = qpi::schedule(again, &cJob::sltRun, 0, "self");
  again.body = [&] {
    if (again.calls < 3) self->start(0, cWork::SingleTask);
  };
  for (int pass = 1; pass <= 4; ++pass) {
    qpi::system().exec();
    EXPECT_EQ(again.calls, pass < 3 ? pass : 3);
  }
  EXPECT_EQ(self->name(), "self");
  EXPECT_EQ(self->statistic().numStarted(), 3u);
  cSystem::cleanup();
}

// The slot call schedule() makes for a member function lives inside the work;
// it must end cleanly whichever side goes first (ASan checks the storage).
TEST(Schedule, ACallMadeInsideTheWorkEndsInEveryOrder) {
  static_assert(qpi::detail::tTriggerSlot<cJob>::fits(), "a plain receiver's call fits into the work");
  cSystem::cleanup();
  {
    // Disconnected from its own slot while it runs, next to a second call.
    cJob job;
    cJob other;
    qstd::tSharedObject<cWork> w = qpi::schedule(job, &cJob::sltRun, 0, cWork::Periodic, "self");
    w->sigTrigger.connect(other, &cJob::sltRun);
    job.body = [&] { w->sigTrigger.disconnect(job); };
    qpi::system().exec();
    qpi::system().exec();
    EXPECT_EQ(job.calls, 1);
    EXPECT_EQ(other.calls, 2);
    EXPECT_TRUE(job.attachedSignals().empty());
    // Connected again the ordinary way after the room's call ended.
    w->sigTrigger.connect(job, &cJob::sltRun);
    qpi::system().exec();
    EXPECT_EQ(job.calls, 2);
    qpi::unschedule(*w);
  }
  {
    // The work dies first (while its call is attached), then the receiver.
    cJob job;
    qstd::tSharedObject<cWork> w = qpi::schedule(job, &cJob::sltRun, 1000, "dies first");
    EXPECT_EQ(job.attachedSignals().size(), 1u);
    qpi::unschedule(*w);
    w.reset();
    EXPECT_TRUE(job.attachedSignals().empty());
  }
  {
    // The work dies from inside its own slot call.
    cJob job;
    qstd::tSharedObject<cWork> w = qpi::schedule(job, &cJob::sltRun, 0, cWork::Periodic, "dies inside");
    job.body = [&] {
      qpi::unschedule(*w);
      w.reset();
    };
    qpi::system().exec();
    EXPECT_EQ(job.calls, 1);
    EXPECT_TRUE(job.attachedSignals().empty());
  }
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 0u);
  cSystem::cleanup();
}
