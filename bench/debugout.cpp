// The cost of a filtered-out trace line, the price every diagnostic call site
// pays in a normal run, against a plain branch on a flag.
#include <atomic>

#include <benchmark/benchmark.h>

#include "qelcore/pi/cabstractout.h"

namespace {

class cNullOut : public qpi::cAbstractOut {
protected:
  void writeEntry(Level, const char*, const char*, unsigned int) override { benchmark::ClobberMemory(); }
};

void BM_Baseline_FlagCheck(benchmark::State& state) {
  static std::atomic<int> level{3};
  for (auto _ : state) {
    bool on = level.load(std::memory_order_relaxed) <= 0;
    benchmark::DoNotOptimize(on);
  }
}
BENCHMARK(BM_Baseline_FlagCheck);

void BM_FilteredTraceLine(benchmark::State& state) {
  cNullOut out;
  out.setFilter("warning");
  qpi::cAbstractOut* previous = qpi::cAbstractOut::install(&out);
  for (auto _ : state) QEL_TRACE("not written");
  qpi::cAbstractOut::install(previous);
}
BENCHMARK(BM_FilteredTraceLine);

void BM_FilteredTraceLineWithPatterns(benchmark::State& state) {
  cNullOut out;
  out.setFilter("warning,rmi/=trace,qcs/cmodulemgr=info");
  qpi::cAbstractOut* previous = qpi::cAbstractOut::install(&out);
  for (auto _ : state) QEL_TRACE("not written");
  qpi::cAbstractOut::install(previous);
}
BENCHMARK(BM_FilteredTraceLineWithPatterns);

}  // namespace
