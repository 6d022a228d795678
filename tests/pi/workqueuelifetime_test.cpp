// Works and queues that die while a pass runs on them: from inside their own
// action, from a nested loop's action, with or without an exception on the
// way out. Run under ASan, these catch every touch of a dead object.
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/worktestutil.h"

using qeltest::cJob;
using qeltest::cTestQueue;
using qeltest::makeJob;
using qpi::cWork;
using qstd::tSharedObject;

namespace {

// A one-shot work that deletes itself when it has run, the way users write
// fire-and-forget works.
class cSelfDeletingWork : public cWork {
public:
  explicit cSelfDeletingWork(int& runs) : miRuns(runs) {}
  void action() override {
    ++miRuns;
    delete this;
  }

private:
  int& miRuns;
};

}  // namespace

TEST(WorkLifetime, AWorkThatDiesInItsOwnActionLeavesThePassIntact) {
  cTestQueue q;
  cJob before, after, job;
  tSharedObject<cWork> first = makeJob(q, before, "before");
  // Added by reference: only the queue's entry points at it.
  cWork* viaSlot = new cWork;
  viaSlot->sigTrigger.connect(job, &cJob::sltRun);
  job.body = [&] { delete viaSlot; };
  q.addJob(*viaSlot);
  int overrideRuns = 0;
  q.addJob(*new cSelfDeletingWork(overrideRuns));
  tSharedObject<cWork> last = makeJob(q, after, "after");
  first->start(0, cWork::SingleTask);
  viaSlot->start(0, cWork::SingleTask);
  last->start(0, cWork::Periodic);
  for (qstd::tSharedObject<cWork>& w : q.jobs())
    if (!w->isStarted()) w->start(0, cWork::SingleTask);

  q.process();
  EXPECT_EQ(job.calls, 1);
  EXPECT_EQ(overrideRuns, 1);
  EXPECT_EQ(before.calls, 1);
  EXPECT_EQ(after.calls, 1) << "works after the dead ones still run";
  EXPECT_EQ(q.jobs().size(), 1u);
  EXPECT_EQ(q.current(), nullptr);
  q.process();
  EXPECT_EQ(after.calls, 2);

  // Called directly, outside any queue, and with an exception on the way out:
  // the exception is not delegated (the work is gone) and reaches the caller.
  cWork* lone = new cWork;
  cJob thrower;
  thrower.body = [&] {
    delete lone;
    throw std::runtime_error("after death");
  };
  lone->sigTrigger.connect(thrower, &cJob::sltRun);
  lone->sigActionError();  // a handler would exist if the work still did
  EXPECT_THROW(lone->action(), std::runtime_error);
}

TEST(WorkLifetime, AnOwnerDroppingItsSharedWorkInTheActionKeepsItAliveToTheEnd) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> w = makeJob(q, job, "owned");
  job.body = [&] {
    q.removeJob(*w);
    w.reset();  // the last handle outside the pass
  };
  w->start(0, cWork::Periodic);
  q.process();
  EXPECT_EQ(job.calls, 1);
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(WorkLifetime, AWorkDestroyedInsideANestedLoopOfItsOwnActionIsDropped) {
  cTestQueue q;
  cJob outer, inner;
  cWork* outerWork = new cWork;
  outerWork->sigTrigger.connect(outer, &cJob::sltRun);
  q.addJob(*outerWork);
  tSharedObject<cWork> innerWork = makeJob(q, inner, "inner");
  inner.body = [&] { delete outerWork; };
  outer.body = [&] {
    qpi::cLocalEventLoop loop(&q);
    innerWork->start(0, cWork::SingleTask);
    loop.process();
    EXPECT_EQ(q.current(), nullptr) << "the current work died";
  };
  outerWork->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(inner.calls, 1);
  EXPECT_EQ(q.jobs().size(), 0u);
  EXPECT_EQ(q.level(), 0u);
}

TEST(WorkLifetime, AnActionDestroyingALaterWorkPreventsItsRun) {
  cTestQueue q;
  cJob killer, victim;
  tSharedObject<cWork> k = makeJob(q, killer, "killer");
  cWork* v = new cWork;
  v->sigTrigger.connect(victim, &cJob::sltRun);
  q.addJob(*v);
  tSharedObject<cWork> late;
  killer.body = [&] {
    delete v;
    late = makeJob(q, victim, "late");  // scheduled during the pass
    late->start(0, cWork::SingleTask);
  };
  k->start(0, cWork::SingleTask);
  v->start(0, cWork::SingleTask);
  q.process();
  q.process();
  EXPECT_EQ(victim.calls, 1) << "only the late work ran";
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(QueueLifetime, AQueueDestroyedInsideAnActionEndsThePass) {
  cJob killer, other;
  tSharedObject<cWork> k, o;
  {
    cTestQueue* q = new cTestQueue;
    k = makeJob(*q, killer, "killer");
    o = makeJob(*q, other, "other");
    killer.body = [&] { delete q; };
    k->start(0, cWork::Periodic);
    o->start(0, cWork::Periodic);
    q->process();
  }
  EXPECT_EQ(killer.calls, 1);
  EXPECT_EQ(other.calls, 0) << "nothing runs on a dead queue";
  EXPECT_TRUE(k.unique() && o.unique());

  // The same with an exception leaving the action: it reaches the caller.
  cTestQueue* q = new cTestQueue;
  cWork& byRef = *new cWork;
  std::unique_ptr<cWork> owner(&byRef);
  q->addJob(byRef);
  killer.body = [&] {
    delete q;
    throw qstd::cRuntimeException(qucs::cLIMessage("$QTR$gone"), __FILE__, __LINE__);
  };
  byRef.sigTrigger.connect(killer, &cJob::sltRun);
  byRef.start(0, cWork::SingleTask);
  EXPECT_THROW(q->process(), qstd::cRuntimeException);
}

TEST(QueueLifetime, AQueueDestroyedInANestedLoopEndsTheOuterPassToo) {
  cTestQueue* q = new cTestQueue;
  cJob outer, inner, third;
  tSharedObject<cWork> outerWork = makeJob(*q, outer, "outer");
  tSharedObject<cWork> innerWork = makeJob(*q, inner, "inner");
  tSharedObject<cWork> thirdWork = makeJob(*q, third, "third");
  inner.body = [&] { delete q; };
  bool detached = false;
  outer.body = [&] {
    qpi::cLocalEventLoop loop(q);
    innerWork->start(0, cWork::SingleTask);
    loop.process();
    detached = loop.queue() == nullptr;
    loop.process();  // does nothing now
  };
  outerWork->start(0, cWork::SingleTask);
  thirdWork->start(0, cWork::SingleTask);
  q->process();
  EXPECT_EQ(inner.calls, 1);
  EXPECT_TRUE(detached);
  EXPECT_EQ(third.calls, 0);
  EXPECT_TRUE(outerWork.unique() && innerWork.unique() && thirdWork.unique());
}

TEST(QueueLifetime, DroppingTheProcessorInsideAnActionStopsQuietly) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> w = makeJob(q, job, "dropper");
  job.body = [&] { q.setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>()); };
  w->start(0, cWork::Periodic);
  EXPECT_NO_THROW(q.process());
  ASSERT_EQ(q.jobs().size(), 1u) << "without a processor no pass purges the cleared entry";
  EXPECT_TRUE(q.jobs().first().null());
  EXPECT_TRUE(w.unique());
  EXPECT_EQ(q.level(), 0u);
}

TEST(QueueLifetime, RecycledWorksStartFreshWhicheverDiedFirst) {
  // Works, their shared records, slot calls and list nodes are recycled
  // through a per-thread cache. A new work on the block of a dead one must
  // carry nothing of it, whether its queue or the work itself died first;
  // under ASan a stale pointer into a recycled block is reported.
  cJob job;
  auto expectFresh = [](const cWork& w) {
    EXPECT_EQ(w.name(), "");
    EXPECT_FALSE(w.isStarted());
    EXPECT_EQ(w.parent(), nullptr);
    EXPECT_EQ(w.statistic().numStarted(), 0u);
    EXPECT_EQ(w.sigTrigger.slotCount(), 0u);
  };
  for (int round = 0; round < 3; ++round) {
    tSharedObject<cWork> survivor;
    {
      cTestQueue q;
      tSharedObject<cWork> parent = makeJob(q, job, "parent");
      job.body = [&] {
        if (!survivor) survivor = makeJob(q, job, "child of parent");
      };
      parent->start(0, cWork::SingleTask);
      q.process();
      ASSERT_TRUE(survivor);
      EXPECT_EQ(survivor->parent(), parent.get());
      // The queue's own works die with it or before it.
    }
    // The queue died first; its work lives on and can still change.
    survivor->start(0, cWork::Periodic);
    survivor.reset();
    job.body = nullptr;

    cTestQueue q;
    tSharedObject<cWork> fresh = q.createJob();
    expectFresh(*fresh);
    fresh->sigTrigger.connect(job, &cJob::sltRun);
    fresh->start(0, cWork::SingleTask);
    const int before = job.calls;
    q.process();
    EXPECT_EQ(job.calls, before + 1);
    // Now the works die first and the queue after them.
    fresh.reset();
    tSharedObject<cWork> next = q.createJob();
    expectFresh(*next);
  }
}

TEST(QueueLifetime, AParentOutlivesItsChildrenAndTheirCutLinks) {
  // A child listens to its parent's destruction; a child that dies first, or
  // that cut the link before, must leave nothing behind on the parent (ASan
  // reports the parent's destruction reaching a dead child otherwise).
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> parent = makeJob(q, job, "parent");
  tSharedObject<cWork> child, cut;
  job.body = [&] {
    child = makeJob(q, job, "child");
    cut = makeJob(q, job, "cut");
  };
  parent->start(0, cWork::Periodic);
  q.process();
  job.body = nullptr;
  ASSERT_EQ(child->parent(), parent.get());
  cut->setInheritErrorHandler(false);
  EXPECT_EQ(cut->parent(), nullptr);
  cut->setInheritErrorHandler(false);
  EXPECT_EQ(cut->parent(), nullptr);
  q.removeJob(*child);
  q.removeJob(*cut);
  EXPECT_TRUE(child.unique());
  child.reset();
  cut.reset();
  EXPECT_EQ(parent->parent(), nullptr);
  parent->stop();
  q.clear();
  EXPECT_TRUE(parent.unique());
  parent.reset();
}
