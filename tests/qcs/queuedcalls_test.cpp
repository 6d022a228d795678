// A provider that asks for its slots to run on its own work queue: calls
// through bound local interfaces arrive there as works, also from other
// threads, and are dropped when the binding ends first.
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qp/cabstractrunnable.h"

#include "qcstestutil.h"
#include "support/runnabletestutil.h"
#include "support/worktestutil.h"

using qcstest::cCounterApi;
using qcstest::cCounterUse;

namespace {

// Counts the calls of "add" and notes the threads they ran on.
class cThreadNotingApi : public qcs::cAbstractInterface {
public:
  cThreadNotingApi() : cAbstractInterface(qcstest::provided("Counter")) {
    qrmi::registerPublicSlot(*this, &cThreadNotingApi::sltAdd, "add");
  }
  int sltAdd(int n) {
    mvThreads.push_back(std::this_thread::get_id());
    miTotal += n;
    miCalls.store(miCalls.load() + 1);
    return miTotal;
  }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  std::vector<std::thread::id> mvThreads;
  int miTotal = 0;
  std::atomic<int> miCalls{0};
};

// Emits "add" `count` times from its own thread.
class cCaller : public qp::cAbstractRunnable {
public:
  cCaller(cCounterUse& use, int count) : mUse(use), miCount(count) {}
  ~cCaller() override {
    qeltest::waitFinished(*this);
    stop();
  }

protected:
  void run() override {
    for (int i = 1; i <= miCount; ++i) mUse.add(i);
  }

private:
  cCounterUse& mUse;
  int miCount;
};

}  // namespace

TEST(QueuedCalls, EachCallRunsAsAWorkOnTheProvidersQueueWithoutResult) {
  qeltest::cTestQueue q;
  cCounterApi api;
  api.setCallQueue(&q);
  cCounterUse use;
  use.connectInterface(api);
  EXPECT_EQ(use.add(3), 0) << "the caller gets no result";
  use.add(4);
  EXPECT_EQ(api.miTotal, 0) << "nothing runs before the queue does";
  q.process();
  EXPECT_EQ(api.miTotal, 7);

  // A call still waiting when the binding ends is dropped.
  use.add(5);
  use.disconnectInterface();
  q.process();
  EXPECT_EQ(api.miTotal, 7);
  EXPECT_EQ(q.jobs().size(), 0u);

  // Without a queue the same binding calls directly again.
  api.setCallQueue(nullptr);
  use.connectInterface(api);
  EXPECT_EQ(use.add(1), 8);
}

TEST(QueuedCalls, AProviderThatDiesBeforeItsQueueRunsMissesItsCalls) {
  qeltest::cTestQueue q;
  cCounterUse use;
  {
    cCounterApi api;
    api.setCallQueue(&q);
    use.connectInterface(api);
    use.add(1);
    use.add(2);
  }
  EXPECT_EQ(use.add.slotCount(), 0u);
  q.process();  // the waiting works find their receiver gone
  EXPECT_EQ(q.jobs().size(), 0u);
}

TEST(QueuedCalls, CallsFromOtherThreadsRunOnTheThreadOfTheProvidersQueue) {
  qeltest::cTestQueue q;
  cThreadNotingApi api;
  api.setCallQueue(&q);
  // A signal belongs to one thread: each caller has its own local interface.
  cCounterUse useA, useB;
  useA.connectInterface(api);
  useB.connectInterface(api);
  const int perCaller = 100;
  {
    cCaller a(useA, perCaller), b(useB, perCaller);
    a.start();
    b.start();
    while (api.miCalls.load() < 2 * perCaller) q.process();
  }
  EXPECT_EQ(api.miTotal, perCaller * (perCaller + 1));
  for (std::thread::id id : api.mvThreads) ASSERT_EQ(id, std::this_thread::get_id());
}
