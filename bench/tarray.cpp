// Byte arrays against the standard containers: appending one byte at a time
// (sector growth against doubling) and searching a 16-byte needle in 1 MiB.
#include "qelcore/std/tarray.h"

#include <cstdint>
#include <string>
#include <vector>

// Both append loops are a handful of instructions; whether one happens to
// straddle a 64-byte boundary changes its speed by half. Align every loop of
// this file so that the comparison measures the code, not its placement.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC optimize("align-loops=64")
#endif

#include <benchmark/benchmark.h>

#include "benchutil.h"

namespace {

constexpr unsigned int kAppends = 10000000;
constexpr unsigned int kHaystack = 1u << 20;
constexpr unsigned int kNeedle = 16;

void warm() {
  static bool done = false;
  if (!done) {
    qelbench::warmMemory(64u << 20);
    done = true;
  }
}

void BM_Baseline_VectorPushBack(benchmark::State& state) {
  warm();
  for (auto _ : state) {
    std::vector<char> v;
    for (unsigned int i = 0; i < kAppends; ++i) v.push_back(static_cast<char>(i));
    benchmark::DoNotOptimize(v.data());
  }
  state.SetItemsProcessed(state.iterations() * kAppends);
}
BENCHMARK(BM_Baseline_VectorPushBack)->Unit(benchmark::kMillisecond);

void BM_TArrayAppend(benchmark::State& state) {
  warm();
  for (auto _ : state) {
    qstd::tArray<char> a;
    for (unsigned int i = 0; i < kAppends; ++i) a.append(static_cast<char>(i));
    benchmark::DoNotOptimize(a.data());
    if (a._poolSize() != kAppends) state.SkipWithError("pool did not grow in sectors of 32");
  }
  state.SetItemsProcessed(state.iterations() * kAppends);
}
BENCHMARK(BM_TArrayAppend)->Unit(benchmark::kMillisecond);

// Uniform pseudo-random bytes with the needle only at the very end.
const std::string& haystack() {
  static std::string text;
  if (text.empty()) {
    std::uint32_t x = 2463534242u;
    text.resize(kHaystack);
    for (char& c : text) {
      x ^= x << 13;
      x ^= x >> 17;
      x ^= x << 5;
      c = static_cast<char>(x >> 24);
    }
    for (unsigned int i = 0; i < kNeedle; ++i) text[kHaystack - kNeedle + i] = static_cast<char>('A' + i);
  }
  return text;
}

void BM_Baseline_StringFind(benchmark::State& state) {
  const std::string& text = haystack();
  const std::string needle = text.substr(kHaystack - kNeedle);
  for (auto _ : state) {
    benchmark::DoNotOptimize(text.find(needle));
  }
  state.SetBytesProcessed(state.iterations() * kHaystack);
}
BENCHMARK(BM_Baseline_StringFind);

void BM_TArrayFind(benchmark::State& state) {
  const std::string& text = haystack();
  const qstd::tArray<char> array(text.data(), kHaystack);
  const std::string needle = text.substr(kHaystack - kNeedle);
  for (auto _ : state) {
    bool found = false;
    benchmark::DoNotOptimize(array.find(needle.data(), kNeedle, found));
    if (!found) state.SkipWithError("needle not found");
  }
  state.SetBytesProcessed(state.iterations() * kHaystack);
}
BENCHMARK(BM_TArrayFind);

}  // namespace
