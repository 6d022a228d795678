// Rendering a message with three placeholders, against formatting the same
// text with snprintf.
#include <cstdio>

#include <benchmark/benchmark.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "benchutil.h"

using qucs::cLIMessage;
using qucs::cString;

namespace {

const char* const kTemplate = "$QTR$Copying %file% to %target% failed after %count% bytes!";

void BM_Baseline_Snprintf(benchmark::State& state) {
  qelbench::warmMemory(16 << 20);
  char buf[128];
  for (auto _ : state) {
    int n =
        std::snprintf(buf, sizeof buf, "Copying %s to %s failed after %lld bytes!", "report.txt", "/backup", 4096LL);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_Baseline_Snprintf);

// Rendering an already built message.
void BM_RenderUntranslated(benchmark::State& state) {
  cLIMessage msg(kTemplate);
  msg << "report.txt"
      << "/backup" << 4096;
  cString out;
  for (auto _ : state) {
    msg.untranslated(out);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_RenderUntranslated);

void BM_RenderTranslated(benchmark::State& state) {
  cLIMessage msg(kTemplate);
  msg << "report.txt"
      << "/backup" << 4096;
  cString translation("Nach %count% Bytes schlug das Kopieren von %file% nach %target% fehl!");
  cString out;
  for (auto _ : state) {
    msg.translate(translation, out);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_RenderTranslated);

// Building the message and rendering it, as a throw site and its reporter do.
void BM_BuildAndRender(benchmark::State& state) {
  cString out;
  for (auto _ : state) {
    cLIMessage msg(kTemplate);
    msg << "report.txt"
        << "/backup" << 4096;
    msg.untranslated(out);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_BuildAndRender);

}  // namespace
