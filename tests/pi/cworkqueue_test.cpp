#include "qelcore/pi/cworkqueue.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/capturingout.h"
#include "support/exceptiontext.h"
#include "support/worktestutil.h"

using qeltest::cJob;
using qeltest::cRecordingEvents;
using qeltest::cTestQueue;
using qeltest::makeJob;
using qpi::cWork;
using qpi::cWorkQueue;
using qsa::piVoid;
using qstd::tSharedObject;

namespace {

// Receives action errors: what arrived and whether from a descendant.
class cErrorSink : public qrmi::cConnectable {
public:
  std::vector<std::string> messages;
  std::vector<bool> fromDescendant;
  piVoid sltError(const qstd::cAbstractException& e, bool descendant) {
    messages.push_back(qeltest::textOf(e));
    fromDescendant.push_back(descendant);
    return piVoid();
  }
};

// The queue's list as a user walks it: the works' names, "-" for an entry
// whose work was removed.
std::string entries(const cWorkQueue& q) {
  std::string s;
  const char* separator = "";
  for (const tSharedObject<cWork>& w : q.jobs()) {
    s += separator;
    s += w ? w->name().c_str() : "-";
    separator = ",";
  }
  return s;
}

std::vector<std::string> dumpOf(const cWorkQueue& q) {
  qeltest::cCapturingOut out;
  q.debugDump(qpi::cAbstractOut::LevelWarning);
  std::vector<std::string> lines;
  for (const auto& e : out.entries()) lines.push_back(e.text);
  return lines;
}

}  // namespace

TEST(WorkQueuePass, SingleTaskRunsOnceWhenDueAndLeaves) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> now = makeJob(q, job, "now");
  now->start(0, cWork::SingleTask);
  cJob laterJob;
  tSharedObject<cWork> later = makeJob(q, laterJob, "later");
  later->start(60000, cWork::SingleTask);

  q.process();
  q.process();
  EXPECT_EQ(job.calls, 1);
  EXPECT_EQ(laterJob.calls, 0);
  EXPECT_FALSE(now->isStarted());
  EXPECT_EQ(q.jobs().size(), 1u);
  EXPECT_EQ(q.jobs().first(), later);
}

TEST(WorkQueuePass, PeriodicWorkOfIntervalZeroRunsOncePerPassAndStays) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> w = makeJob(q, job, "tick");
  w->start(0, cWork::Periodic);
  for (int i = 0; i < 3; ++i) q.process();
  EXPECT_EQ(job.calls, 3);
  EXPECT_EQ(q.jobs().size(), 1u);
  EXPECT_TRUE(w->isStarted());
  EXPECT_EQ(w->statistic().numTriggered(), 3u);
  EXPECT_EQ(w->statistic().numStarted(), 4u);  // start, then a restart before each run

  w->stop();
  q.process();
  EXPECT_EQ(job.calls, 3);
  EXPECT_EQ(q.jobs().size(), 1u) << "a stopped periodic work is kept";
}

TEST(WorkQueuePass, WaitsAreHandedToTheProcessor) {
  cRecordingEvents* events = new cRecordingEvents;
  cTestQueue q(events);
  q.process();
  EXPECT_TRUE(events->waits.empty()) << "an empty queue needs no wait";

  cJob job;
  tSharedObject<cWork> w = makeJob(q, job, "far");
  w->start(60000, cWork::SingleTask);
  q.process();
  ASSERT_EQ(events->waits.size(), 1u);
  EXPECT_GT(events->waits[0], 59000u);
  EXPECT_LE(events->waits[0], 60000u);

  // A pass that ran a single task does not wait: the task's own wait of 0
  // counts, so the processor is not called.
  tSharedObject<cWork> due = makeJob(q, job, "due");
  due->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(job.calls, 1);
  EXPECT_EQ(events->waits.size(), 1u);

  // A work that ran and put itself off leaves a wait: the processor is
  // called, but handed 0, so that the caller sees at once what ran.
  tSharedObject<cWork> slow = makeJob(q, job, "slow");
  job.body = [&slow] { slow->start(60000, cWork::Periodic); };
  slow->start(0, cWork::Periodic);
  q.process();
  EXPECT_EQ(job.calls, 2);
  ASSERT_EQ(events->waits.size(), 2u);
  EXPECT_EQ(events->waits[1], 0u);
  q.process();
  ASSERT_EQ(events->waits.size(), 3u);
  EXPECT_GT(events->waits[2], 59000u);
}

TEST(WorkQueuePass, OnlyAsynchronousWorksWaitTenSeconds) {
  cRecordingEvents* events = new cRecordingEvents(true);
  cTestQueue q(events);
  cJob job;
  tSharedObject<cWork> io = makeJob(q, job, "io");
  io->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(new qpi::cFDAIOData));
  EXPECT_TRUE(io->isStarted());
  q.process();
  EXPECT_EQ(job.calls, 0);
  ASSERT_EQ(events->waits.size(), 1u);
  EXPECT_EQ(events->waits[0], 10000u);

  io->aioData().setEvent(true);
  q.process();
  EXPECT_EQ(job.calls, 1);
  EXPECT_FALSE(io->aioData().isEvent()) << "the queue clears the event after the run";
  EXPECT_EQ(q.jobs().size(), 1u) << "an I/O work is kept";
}

TEST(WorkQueuePass, WithoutIOSupportAnIOWorkIsPolledAtItsInterval) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> io = makeJob(q, job, "io");
  io->start(0, cWork::Periodic);
  io->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(new qpi::cFDAIOData));
  ASSERT_EQ(io->type(), cWork::AsyncIO);
  q.process();
  EXPECT_EQ(io->type(), cWork::Periodic);
  EXPECT_EQ(job.calls, 1);
  q.process();
  EXPECT_EQ(job.calls, 2);
}

TEST(WorkQueueMembers, AddingByReferenceKeepsTheWorkOnceAndDropsItWhenItDies) {
  cTestQueue q;
  cJob job;
  {
    cWork w;
    w.sigTrigger.connect(job, &cJob::sltRun);
    q.addJob(w);
    q.addJob(w);
    EXPECT_EQ(q.jobs().size(), 1u);
    EXPECT_TRUE(w.isKeep());
    w.start(0, cWork::SingleTask);
    q.process();
    EXPECT_EQ(job.calls, 1);
    EXPECT_EQ(q.jobs().size(), 1u) << "kept while stopped";
  }
  EXPECT_EQ(entries(q), "-") << "its entry lets go of it";
  q.process();
  EXPECT_EQ(entries(q), "");
}

TEST(WorkQueueMembers, QueueAndWorksDieInEitherOrder) {
  cJob job;
  cWork byRef;
  tSharedObject<cWork> shared;
  {
    cTestQueue q;
    q.addJob(byRef);
    shared = makeJob(q, job, "shared");
    shared->start(0, cWork::Periodic);
  }
  // Both works outlive the queue and can still change without it.
  shared->stop();
  byRef.start(5, cWork::SingleTask);
  EXPECT_TRUE(shared.unique());
  // ... and join another queue as if new.
  cTestQueue next;
  next.addJob(byRef);
  next.addJob(byRef);
  next.addJob(shared);
  EXPECT_EQ(entries(next), ",shared");
  next.removeJob(byRef);
  EXPECT_EQ(entries(next), "-,shared");

  cWork unqueued;  // a work that never belonged to a queue comes and goes quietly
}

TEST(WorkQueueMembers, RemovedWorksCanComeBackOnce) {
  cTestQueue q;
  cJob job;
  cWork byRef;
  byRef.setName("byRef");
  byRef.sigTrigger.connect(job, &cJob::sltRun);
  tSharedObject<cWork> shared = makeJob(q, job, "shared");
  q.addJob(byRef);
  q.removeJob(byRef);
  q.removeJob(byRef);  // no longer there: nothing happens
  q.removeJob(*shared);
  q.addJob(byRef);
  q.addJob(byRef);
  q.addJob(shared);
  q.addJob(shared);
  EXPECT_EQ(entries(q), "-,-,byRef,shared");
  byRef.start(0, cWork::SingleTask);
  shared->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(job.calls, 2);
  EXPECT_EQ(entries(q), "byRef") << "the shared single task left, the work added by reference stays";
}

TEST(WorkQueueMembers, AWorkHeldByTwoQueuesIsKeptOnceInEach) {
  cJob job;
  cWork both;
  both.setName("both");
  both.sigTrigger.connect(job, &cJob::sltRun);
  cTestQueue first;
  {
    cTestQueue second;
    for (int i = 0; i < 2; ++i) {
      first.addJob(both);
      second.addJob(both);
    }
    EXPECT_EQ(entries(first), "both");
    EXPECT_EQ(entries(second), "both");
    first.removeJob(both);
    EXPECT_EQ(entries(first), "-");
    both.start(0, cWork::SingleTask);
    second.process();
    EXPECT_EQ(job.calls, 1);
    first.addJob(both);
    second.removeJob(both);
    second.addJob(both);
    EXPECT_EQ(entries(second), "-,both");
  }
  EXPECT_EQ(entries(first), "-,both");
  both.start(0, cWork::SingleTask);
  first.process();
  EXPECT_EQ(job.calls, 2);
}

// A queue listens to each of its works' changes through one connection of
// sigChanged, whichever queue came first and whichever side dies first.
TEST(WorkQueueMembers, EveryQueueHearsItsWorksChangesWhileBothLive) {
  auto* firstEvents = new cRecordingEvents;
  auto* secondEvents = new cRecordingEvents;
  auto first = std::make_unique<cTestQueue>(firstEvents);
  cTestQueue second(secondEvents);
  tSharedObject<cWork> w = first->createJob();
  second.addJob(w);
  first->removeJob(*w);
  first->addJob(w);  // a second connection to the first queue
  EXPECT_EQ(w->sigChanged.slotCount(), 3u);
  ASSERT_EQ(second.attachedSignals().size(), 2u);
  EXPECT_EQ(second.attachedSignals()[1], &w->sigChanged);

  const int firstBefore = firstEvents->wakeUps, secondBefore = secondEvents->wakeUps;
  w->start(0, cWork::Periodic);
  EXPECT_EQ(firstEvents->wakeUps - firstBefore, 2);
  EXPECT_EQ(secondEvents->wakeUps - secondBefore, 1);

  first.reset();
  EXPECT_EQ(w->sigChanged.slotCount(), 1u);
  // The room the first queue used serves the next one.
  cTestQueue third;
  third.addJob(w);
  EXPECT_EQ(w->sigChanged.slotCount(), 2u);
  {
    cWork shortLived;  // by reference: its destruction is watched too
    third.addJob(shortLived);
    second.addJob(shortLived);
    EXPECT_EQ(third.attachedSignals().size(), 4u);
  }
  EXPECT_EQ(third.attachedSignals().size(), 2u);
  EXPECT_EQ(second.attachedSignals().size(), 2u);
  second.process();
  third.process();
  EXPECT_EQ(w->statistic().numTriggered(), 2u);
}

TEST(WorkQueueReentrance, ActionsRemoveAndAddWorksDuringThePass) {
  cTestQueue q;
  cJob first, victim, added;
  tSharedObject<cWork> victimWork = makeJob(q, victim, "victim");
  tSharedObject<cWork> firstWork = makeJob(q, first, "first");
  tSharedObject<cWork> child;
  std::string inside;
  first.body = [&] {
    child = makeJob(q, added, "child");
    child->start(0, cWork::SingleTask);
    q.removeJob(*victimWork);
    q.removeJob(*firstWork);
    EXPECT_EQ(q.current(), nullptr) << "the running work was removed";
    inside = entries(q);
  };
  // The victim comes after the first in the list.
  q.removeJob(*victimWork);
  q.addJob(victimWork);
  firstWork->start(0, cWork::SingleTask);
  victimWork->start(0, cWork::SingleTask);

  q.process();
  EXPECT_EQ(first.calls, 1);
  EXPECT_EQ(victim.calls, 0);
  EXPECT_EQ(added.calls, 1) << "a work added during the walk is reached by it";
  EXPECT_EQ(child->parent(), firstWork.get());
  EXPECT_EQ(inside, "-,-,-,child") << "removed entries stay in the list, null, while the pass runs";
  EXPECT_FALSE(q.jobs().hasMarked()) << "the outermost pass purges";
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(WorkQueueReentrance, NestedLoopsRunOtherWorksAndPurgeOnlyAtTheOutermostPass) {
  cTestQueue q;
  cJob outer, inner;
  tSharedObject<cWork> outerWork = makeJob(q, outer, "outer");
  tSharedObject<cWork> innerWork = makeJob(q, inner, "inner");
  bool markedInside = false;
  unsigned int levelInside = 0;
  outer.body = [&] {
    qpi::cLocalEventLoop loop(&q);
    innerWork->start(0, cWork::SingleTask);
    inner.body = [&] { levelInside = q.level(); };
    loop.process();
    markedInside = q.jobs().hasMarked();
    EXPECT_EQ(q.current(), outerWork.get());
  };
  outerWork->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(inner.calls, 1);
  EXPECT_EQ(levelInside, 2u);
  EXPECT_TRUE(markedInside) << "a nested pass leaves erased nodes in place";
  EXPECT_FALSE(q.jobs().hasMarked());
  EXPECT_EQ(q.current(), nullptr);
}

TEST(WorkQueueReentrance, ChangesInsideALocalLoopWakeTheProcessor) {
  cRecordingEvents* events = new cRecordingEvents;
  cTestQueue q(events);
  cJob job, other;
  tSharedObject<cWork> w = makeJob(q, job, "w");
  tSharedObject<cWork> o = makeJob(q, other, "o");
  int wakeUpsInside = 0;
  job.body = [&] {
    const int before = events->wakeUps;
    o->start(60000, cWork::SingleTask);  // no local loop: no wake-up
    qpi::cLocalEventLoop loop(&q);
    o->start(60000, cWork::SingleTask);
    wakeUpsInside = events->wakeUps - before;
  };
  w->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(wakeUpsInside, 1);
}

TEST(WorkQueueErrors, ErrorsGoToTheWorkOrItsNearestAncestorWithAHandler) {
  cTestQueue q;
  cJob parentJob, childJob;
  cErrorSink sink;
  tSharedObject<cWork> parent = makeJob(q, parentJob, "parent");
  parent->sigActionError().connect(sink, &cErrorSink::sltError);
  tSharedObject<cWork> child;
  parentJob.body = [&] {
    child = makeJob(q, childJob, "child");
    child->start(0, cWork::SingleTask);
  };
  childJob.body = [] { qstd::cSTDExceptions::throwUnexpectedEndOfInput(); };
  parent->start(0, cWork::SingleTask);

  qeltest::cCapturingOut out;
  ASSERT_TRUE(out.setFilter("debug"));
  q.process();
  ASSERT_EQ(sink.messages.size(), 1u);
  EXPECT_EQ(sink.messages[0], "Unexpected end of input!");
  EXPECT_TRUE(sink.fromDescendant[0]);
  EXPECT_TRUE(out.contains("  * Checking handler in child"));
  EXPECT_TRUE(out.contains("  * Handler found in parent"));

  // The work's own handler comes first and hears a non-library exception
  // as a runtime exception naming the work.
  cErrorSink own;
  tSharedObject<cWork> w = makeJob(q, childJob, "mine");
  w->sigActionError().connect(own, &cErrorSink::sltError);
  childJob.body = [] { throw 42; };
  w->start(0, cWork::SingleTask);
  q.process();
  ASSERT_EQ(own.messages.size(), 1u);
  EXPECT_EQ(own.messages[0], "Error performing work mine!");
  EXPECT_FALSE(own.fromDescendant[0]);
}

TEST(WorkQueueErrors, UnhandledErrorsLeaveProcessWithTheCurrentWorkRestored) {
  cTestQueue q;
  cJob job;
  cErrorSink sink;
  tSharedObject<cWork> w = makeJob(q, job, "plain");
  job.body = [] { throw 7; };
  w->start(0, cWork::SingleTask);
  EXPECT_THROW(q.process(), int);
  EXPECT_EQ(q.current(), nullptr);
  EXPECT_EQ(q.level(), 0u);

  // Without delegation even a connected handler is passed by.
  w->sigActionError().connect(sink, &cErrorSink::sltError);
  w->setDelegateExceptions(false);
  job.body = [] { qstd::cSTDExceptions::throwUnexpectedEndOfInput(); };
  w->start(0, cWork::SingleTask);
  EXPECT_THROW(q.process(), qstd::cRuntimeException);
  EXPECT_TRUE(sink.messages.empty());
}

TEST(WorkQueueErrors, AnIOWorkFailingThreeTimesInARowIsStoppedAsAmuck) {
  cTestQueue q(new cRecordingEvents(true));
  cJob job;
  cErrorSink sink;
  tSharedObject<cWork> io = makeJob(q, job, "reader");
  io->sigActionError().connect(sink, &cErrorSink::sltError);
  io->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(new qpi::cFDAIOData));
  job.body = [] { qstd::cSTDExceptions::throwUnexpectedEndOfInput(); };
  for (int i = 0; i < 3; ++i) {
    io->aioData().setEvent(true);
    q.process();
  }
  EXPECT_EQ(sink.messages.size(), 3u);
  EXPECT_TRUE(io->isAmuck());

  io->aioData().setEvent(true);
  try {
    q.process();
    FAIL() << "an amuck work must stop the pass";
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(qeltest::textOf(e), "Stopping amuck work \"reader\"!");
  }
  EXPECT_EQ(job.calls, 3);
  EXPECT_FALSE(io->isStarted());
  EXPECT_EQ(q.jobs().size(), 1u) << "the amuck work stays in the list, stopped";
  EXPECT_EQ(q.level(), 0u);
}

TEST(WorkQueueErrors, ProcessingWithoutAProcessorIsABug) {
  cWorkQueue q;
  qeltest::cCapturingOut out;
  try {
    q.process();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(qeltest::textOf(e), "No process event manager for workqueue!");
  }
  EXPECT_TRUE(out.contains("*** WORKQUEUE HAS BEEN FOUND A BUG ***"));
  EXPECT_TRUE(out.contains("No event processor!"));
}

TEST(WorkQueueDumps, StatusDumpListsEveryWork) {
  cTestQueue q;
  cJob tickJob;
  tSharedObject<cWork> tick, child;
  qeltest::tickWithChild(q, tickJob, tick, child);

  qeltest::cCapturingOut out;
  q.debugDump(qpi::cAbstractOut::LevelWarning);
  std::vector<std::string> lines;
  for (const auto& e : out.entries()) lines.push_back(e.text);
  const std::vector<std::string> expected = {
      "WorkQueue status:",
      "Have event object (synchronous event processor)",
      "Tasks:",
      " * Work (tick) Periodic (250ms interval) (scheduled) (keep)",
      "   * Triggered: 1 / numStarted: 3",
      " * Work (child) Single task (planned in 0ms)",
      "   * Triggered: 0 / numStarted: 0",
  };
  EXPECT_EQ(lines, expected);
}

TEST(WorkQueueErasure, ARemovedWorkLeavesANullEntryUntilTheNextPass) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> a = makeJob(q, job, "a");
  cWork b;
  b.setName("b");
  q.addJob(b);
  tSharedObject<cWork> c = makeJob(q, job, "c");
  q.removeJob(*a);
  q.removeJob(b);
  q.removeJob(b);  // no longer held: nothing changes
  EXPECT_EQ(entries(q), "-,-,c");
  EXPECT_EQ(q.jobs().size(), 3u);
  EXPECT_TRUE(a.unique()) << "the entry lets go of the work at once";

  const std::vector<std::string> expected = {
      "WorkQueue status:",
      "Have event object (synchronous event processor)",
      "Tasks:",
      " * zero item",
      " * zero item",
      " * Work (c) Single task (planned in 0ms)",
      "   * Triggered: 0 / numStarted: 0",
  };
  EXPECT_EQ(dumpOf(q), expected);

  q.addJob(a);  // comes back behind its old entry
  EXPECT_EQ(entries(q), "-,-,c,a");
  q.process();
  EXPECT_EQ(entries(q), "c,a");
}

TEST(WorkQueueErasure, ClearNullsEveryEntryAndThePassPurgesThem) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> a = makeJob(q, job, "a");
  cWork b;
  q.addJob(b);
  q.removeJob(b);
  q.clear();
  EXPECT_EQ(entries(q), "-,-");
  EXPECT_TRUE(a.unique()) << "the queue let go of its handle";
  a->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(entries(q), "") << "a cleared work does not come back by starting it";
  EXPECT_EQ(job.calls, 0);

  tSharedObject<cWork> c = makeJob(q, job, "c");
  c->start(0, cWork::SingleTask);
  q.setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>());
  EXPECT_EQ(entries(q), "-") << "dropping the processor clears the queue";
  q.setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>(new qpi::cLocalEventProcessor));
  q.process();
  EXPECT_EQ(entries(q), "");
  EXPECT_EQ(job.calls, 0);
}

TEST(WorkQueueErasure, NestedPassesLeaveErasedEntriesInTheList) {
  cTestQueue q;
  cJob outer, inner, victim;
  tSharedObject<cWork> outerWork = makeJob(q, outer, "outer");
  tSharedObject<cWork> innerWork = makeJob(q, inner, "inner");
  tSharedObject<cWork> victimWork = makeJob(q, victim, "victim");
  std::string inInner, afterLoop;
  std::vector<std::string> dumpAfterLoop;
  inner.body = [&] {
    q.removeJob(*victimWork);
    inInner = entries(q);
  };
  outer.body = [&] {
    if (outer.calls > 1) return;  // the nested pass runs it again
    qpi::cLocalEventLoop loop(&q);
    innerWork->start(0, cWork::SingleTask);
    loop.process();
    afterLoop = entries(q);
    dumpAfterLoop = dumpOf(q);
  };
  outerWork->start(0, cWork::Periodic);
  victimWork->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(inner.calls, 1);
  EXPECT_EQ(victim.calls, 0);
  EXPECT_EQ(inInner, "outer,inner,-");
  EXPECT_EQ(afterLoop, "outer,inner,-") << "the done inner task stays, stopped, until the outermost pass purges";
  ASSERT_EQ(dumpAfterLoop.size(), 8u);
  EXPECT_EQ(dumpAfterLoop[5], " * Work (inner) Single task (planned in 0ms)");
  EXPECT_EQ(dumpAfterLoop[7], " * zero item");
  EXPECT_EQ(entries(q), "outer");
}

TEST(WorkQueueErasure, WorksDoneInANestedPassWaitForAPassThatRemovesSomething) {
  cTestQueue q;
  cJob outer, inner, later;
  tSharedObject<cWork> outerWork = makeJob(q, outer, "outer");
  tSharedObject<cWork> innerWork = makeJob(q, inner, "inner");
  outer.body = [&] {
    if (outer.calls > 1) return;  // the nested pass runs it again
    qpi::cLocalEventLoop loop(&q);
    innerWork->start(0, cWork::SingleTask);
    loop.process();
  };
  outerWork->start(0, cWork::Periodic);
  q.process();
  q.process();
  EXPECT_EQ(inner.calls, 1);
  EXPECT_EQ(entries(q), "outer,inner") << "the outermost passes removed nothing themselves";
  tSharedObject<cWork> once = makeJob(q, later, "later");
  once->start(0, cWork::SingleTask);
  q.process();
  EXPECT_EQ(entries(q), "outer");
}
