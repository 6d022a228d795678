// The work queue against the simplest queues that do the same job: posting
// and running zero-delay tasks, and firing many periodic works per pass.
#include <deque>
#include <functional>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/pi/clocaleventprocessor.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/pi/schedule.h"
#include "qelcore/std/ctime.h"

#include "benchutil.h"

namespace {

using qpi::cWork;
using qsa::piVoid;

class cCounter : public qrmi::cConnectable {
public:
  piVoid sltRun() {
    ++miRuns;
    return piVoid();
  }
  long long miRuns = 0;
};

// Baseline: a deque of std::function, one pushed and one popped and called
// per task.
void BM_Baseline_DequeOfFunction(benchmark::State& state) {
  const int batch = static_cast<int>(state.range(0));
  std::deque<std::function<void()>> queue;
  long long runs = 0;
  for (auto _ : state) {
    for (int i = 0; i < batch; ++i) queue.push_back([&runs] { ++runs; });
    while (!queue.empty()) {
      std::function<void()> task = std::move(queue.front());
      queue.pop_front();
      task();
    }
  }
  benchmark::DoNotOptimize(runs);
  state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_Baseline_DequeOfFunction)->Arg(1)->Arg(100);

// schedule() of a zero-delay single task on the main queue, then one pass.
void BM_ScheduleAndRun(benchmark::State& state) {
  qelbench::warmMemory(64 << 20);
  const int batch = static_cast<int>(state.range(0));
  cCounter counter;
  qpi::cSystem& sys = qpi::system();
  for (auto _ : state) {
    for (int i = 0; i < batch; ++i) qpi::schedule(counter, &cCounter::sltRun, 0, "task");
    sys.exec();
  }
  if (counter.miRuns != static_cast<long long>(state.iterations()) * batch) state.SkipWithError("tasks lost");
  state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_ScheduleAndRun)->Arg(1)->Arg(100);

// Baseline for periodic works: a vector of {due time, function} scanned once
// per pass, each due entry called and rescheduled.
void BM_Baseline_PeriodicScan(benchmark::State& state) {
  struct cEntry {
    unsigned long long due;
    unsigned int interval;
    std::function<void()> fn;
  };
  const int works = static_cast<int>(state.range(0));
  long long runs = 0;
  std::vector<cEntry> entries;
  for (int i = 0; i < works; ++i) entries.push_back(cEntry{0, 0, [&runs] { ++runs; }});
  for (auto _ : state) {
    const unsigned long long now = qstd::cTime().get();
    for (cEntry& e : entries)
      if (e.due <= now) {
        e.due = qstd::cTime().get() + e.interval * 1000ull;
        e.fn();
      }
  }
  benchmark::DoNotOptimize(runs);
  state.SetItemsProcessed(state.iterations() * works);
}
BENCHMARK(BM_Baseline_PeriodicScan)->Arg(10000);

// 10,000 periodic works of interval 0: each pass fires every one of them.
void BM_PeriodicFirings(benchmark::State& state) {
  const int works = static_cast<int>(state.range(0));
  qpi::cWorkQueue queue;
  queue.setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>(new qpi::cLocalEventProcessor));
  cCounter counter;
  std::vector<qstd::tSharedObject<cWork>> keep;
  for (int i = 0; i < works; ++i) {
    qstd::tSharedObject<cWork> w = queue.createJob();
    w->sigTrigger.connect(counter, &cCounter::sltRun);
    w->start(0, cWork::Periodic);
    keep.push_back(w);
  }
  for (auto _ : state) queue.process();
  if (counter.miRuns != static_cast<long long>(state.iterations()) * works) state.SkipWithError("firings lost");
  state.SetItemsProcessed(state.iterations() * works);
}
BENCHMARK(BM_PeriodicFirings)->Arg(10000);

}  // namespace
