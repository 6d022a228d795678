// Slot calls delivered through works, and works handed to a queue from
// other threads.
#include <atomic>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qp/cabstractrunnable.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/std/cbugexception.h"

#include "support/runnabletestutil.h"
#include "support/worktestutil.h"

using qpi::cWork;
using qsa::piVoid;

namespace {

class cInbox : public qrmi::cConnectable {
public:
  std::vector<std::string> got;
  piVoid sltPut(const std::string& text, int n) {
    got.push_back(text + ":" + std::to_string(n));
    return piVoid();
  }
};

class cSource {
public:
  qrmi::localSignal2<piVoid, const std::string&, int> sigResult;
};

// Posts `count` results to `queue` through the slot call's works.
class cProducer : public qp::cAbstractRunnable {
public:
  cProducer(qpi::cWorkQueue& queue, const qrmi::cAbstractSlotCall2<piVoid, const std::string&, int>& call, int count)
      : mQueue(queue), mCall(call), miCount(count) {}
  ~cProducer() override {
    qeltest::waitFinished(*this);
    stop();
  }

protected:
  void run() override {
    for (int i = 0; i < miCount; ++i) mQueue.post(qstd::tAutoPtr<cWork>(mCall.createWork("r", i)));
  }

private:
  qpi::cWorkQueue& mQueue;
  const qrmi::cAbstractSlotCall2<piVoid, const std::string&, int>& mCall;
  int miCount;
};

}  // namespace

TEST(SlotCallWork, CallsTheSlotWithCopiesOfTheArgumentsWhenItRuns) {
  cSource source;
  qeltest::cTestQueue q;
  std::vector<std::string> keep;
  {
    cInbox inbox;
    auto& call = source.sigResult.connect(inbox, &cInbox::sltPut);
    std::string text("first");
    q.addJob(qstd::tSharedObject<cWork>(call.createWork(text, 1)));
    text = "changed";
    EXPECT_TRUE(inbox.got.empty()) << "nothing runs before the queue does";
    q.process();
    EXPECT_EQ(inbox.got, (std::vector<std::string>{"first:1"}));

    q.addJob(qstd::tSharedObject<cWork>(call.createWork("late", 2)));
  }
  // The receiver died with its connection: the pending work does nothing.
  q.process();
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(SlotCallWork, ArgumentsThatCannotBeCopiedMakeItUnsupported) {
  class cWatcher : public qrmi::cConnectable {
  public:
    piVoid sltGone(const cWork&) { return piVoid(); }
  } watcher;
  cWork w;
  auto& call = w.sigDestroyed.connect(watcher, &cWatcher::sltGone);
  EXPECT_THROW(call.createWork(w), qstd::cBugException);
}

TEST(CrossThreadInbox, RunnablesHandResultsBackToTheQueuesThread) {
  cSource source;
  cInbox inbox;
  auto& call = source.sigResult.connect(inbox, &cInbox::sltPut);
  qeltest::cTestQueue q;
  const int perProducer = 200;
  {
    cProducer a(q, call, perProducer), b(q, call, perProducer);
    a.start();
    b.start();
    while (inbox.got.size() < 2u * perProducer) q.process();
  }
  EXPECT_EQ(inbox.got.size(), 2u * perProducer);
  EXPECT_EQ(inbox.got.front().substr(0, 2), "r:");
  q.process();
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(CrossThreadInbox, WorksStillWaitingDieWithTheQueue) {
  cSource source;
  cInbox inbox;
  auto& call = source.sigResult.connect(inbox, &cInbox::sltPut);
  {
    qeltest::cTestQueue q;
    q.post(qstd::tAutoPtr<cWork>(call.createWork("never", 0)));
    q.post(qstd::tAutoPtr<cWork>());
  }
  EXPECT_TRUE(inbox.got.empty());
}
