// Locks, threads and the hand-over of work between threads against the
// standard library doing the same.
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include <benchmark/benchmark.h>

#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qp/cabstractrunnable.h"
#include "qelcore/qp/clocker.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"

namespace {

using qsa::piVoid;

void BM_Baseline_RecursiveMutex(benchmark::State& state) {
  std::recursive_mutex m;
  for (auto _ : state) {
    m.lock();
    m.unlock();
  }
}
BENCHMARK(BM_Baseline_RecursiveMutex);

void BM_LockerGuard(benchmark::State& state) {
  qp::cLocker locker;
  for (auto _ : state) {
    qp::cLocker::cLock guard(locker.lock());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_LockerGuard);

void BM_Baseline_ThreadStartJoin(benchmark::State& state) {
  std::atomic<int> runs{0};
  for (auto _ : state) {
    std::thread t([&runs] { ++runs; });
    t.join();
  }
  benchmark::DoNotOptimize(runs.load());
}
BENCHMARK(BM_Baseline_ThreadStartJoin)->UseRealTime();

class cCount : public qp::cAbstractRunnable {
public:
  ~cCount() override { stop(); }
  std::atomic<int> runs{0};

protected:
  void run() override { ++runs; }
};

// start() and the stop() that waits for run() to return.
void BM_RunnableStartFinish(benchmark::State& state) {
  cCount r;
  for (auto _ : state) {
    r.start();
    r.stop();
  }
  if (r.runs.load() != static_cast<int>(state.iterations())) state.SkipWithError("runs lost");
}
BENCHMARK(BM_RunnableStartFinish)->UseRealTime();

// Hand-over latency: one work posted to a queue that waits on another thread
// until the work has run there.
class cFlag : public qrmi::cConnectable {
public:
  piVoid sltSet() {
    mbDone.store(true, std::memory_order_release);
    return piVoid();
  }
  std::atomic<bool> mbDone{false};
};

class cQueueThread {
public:
  cQueueThread() : mThread([this] { loop(); }) {
    while (!mpQueue.load()) std::this_thread::yield();
  }
  ~cQueueThread() {
    mbStop = true;
    mpQueue.load()->events()->wakeUpFromAnyThread();
    mThread.join();
  }
  qpi::cWorkQueue& queue() { return *mpQueue.load(); }

private:
  void loop() {
    qpi::cWorkQueue q;
    q.setEvents(qpi::cPlatform::createAIOProcessEvents());
    // An I/O work that never becomes ready keeps the queue waiting.
    qstd::tSharedObject<qpi::cWork> idle = q.createJob();
    qpi::cFDAIOData* data = new qpi::cFDAIOData;
    idle->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(data));
    mpQueue.store(&q);
    while (!mbStop) q.process();
  }
  std::atomic<qpi::cWorkQueue*> mpQueue{nullptr};
  std::atomic<bool> mbStop{false};
  std::thread mThread;
};

void BM_HandOverToWaitingQueue(benchmark::State& state) {
  cQueueThread worker;
  cFlag flag;
  qrmi::cDirectLocalSlotCall0<cFlag, piVoid> call(flag, &cFlag::sltSet, nullptr);
  for (auto _ : state) {
    flag.mbDone.store(false, std::memory_order_relaxed);
    worker.queue().post(qstd::tAutoPtr<qpi::cWork>(call.createWork()));
    while (!flag.mbDone.load(std::memory_order_acquire)) {
    }
  }
}
BENCHMARK(BM_HandOverToWaitingQueue)->UseRealTime();

// Baseline: a deque of std::function under a mutex, with a condition
// variable that wakes the waiting thread.
void BM_Baseline_HandOverCondition(benchmark::State& state) {
  std::mutex m;
  std::condition_variable cv;
  std::deque<std::function<void()>> tasks;
  bool stop = false;
  std::thread consumer([&] {
    std::unique_lock<std::mutex> lock(m);
    for (;;) {
      cv.wait(lock, [&] { return stop || !tasks.empty(); });
      if (tasks.empty()) return;
      std::function<void()> task = std::move(tasks.front());
      tasks.pop_front();
      lock.unlock();
      task();
      lock.lock();
    }
  });
  std::atomic<bool> done{false};
  for (auto _ : state) {
    done.store(false, std::memory_order_relaxed);
    {
      std::lock_guard<std::mutex> lock(m);
      tasks.push_back([&done] { done.store(true, std::memory_order_release); });
    }
    cv.notify_one();
    while (!done.load(std::memory_order_acquire)) {
    }
  }
  {
    std::lock_guard<std::mutex> lock(m);
    stop = true;
  }
  cv.notify_one();
  consumer.join();
}
BENCHMARK(BM_Baseline_HandOverCondition)->UseRealTime();

}  // namespace
