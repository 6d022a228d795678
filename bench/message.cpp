// Rendering a message with three placeholders, against formatting the same
// text with snprintf; and a very large message, against copying its text.
#include <cstdio>
#include <string>

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

// A message of the size another process could once send: 100,000
// placeholders over 40,000 values, about 1.4 MB.
cLIMessage largeMessage(unsigned int placeholders) {
  const unsigned int values = placeholders * 2 / 5;
  std::string key;
  for (unsigned int i = 0; i < placeholders; ++i) key += "%p" + std::to_string(i % values) + "% ";
  cLIMessage msg;
  msg.restore(qstd::cAsciiString(key.c_str()), 0, true);
  for (unsigned int i = 0; i < values; ++i)
    msg.addParam(qstd::cAsciiString(("%p" + std::to_string(i)).c_str()), cString("value"), cLIMessage::ParamText);
  return msg;
}

// The baseline: the key as text, with no placeholder replaced.
void BM_Baseline_LargeKeyAsText(benchmark::State& state) {
  const cLIMessage msg = largeMessage(static_cast<unsigned int>(state.range(0)));
  for (auto _ : state) {
    cString out;
    out.appendC(msg.key().c_str(), msg.key().size());
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_Baseline_LargeKeyAsText)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_RenderLarge(benchmark::State& state) {
  const cLIMessage msg = largeMessage(static_cast<unsigned int>(state.range(0)));
  cString out;
  for (auto _ : state) {
    msg.untranslated(out);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_RenderLarge)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
