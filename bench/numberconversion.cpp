// Number conversion against the standard library: integers to decimal text
// and back (std::to_chars / std::from_chars), doubles to text with the
// default format (snprintf "%.14g") and an explicit one (fixed, six places,
// trailing zeros kept: "%.6f") and text to double (strtod). Each pair works on
// the same inputs. Where installed, fmt (formatting) and fast_float (parsing)
// are measured alongside.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"

#include "benchutil.h"

#ifdef QELBENCH_HAVE_FMT
#include <fmt/format.h>
#endif
#ifdef QELBENCH_HAVE_FAST_FLOAT
#include <fast_float/fast_float.h>
#endif

using qstd::cNumberConversion;
using qstd::cNumberConversionFormat;

namespace {

const std::size_t kCount = 1024;

// Integers of every magnitude, both signs.
const std::vector<long long>& integers() {
  static std::vector<long long> values = [] {
    qelbench::warmMemory(64 << 20);
    std::mt19937_64 rng(7);
    std::vector<long long> v;
    for (std::size_t i = 0; i < kCount; ++i) {
      unsigned int bits = 1 + static_cast<unsigned int>(rng() % 63);
      long long x = static_cast<long long>(rng() >> (64 - bits));
      v.push_back((rng() & 1) ? -x : x);
    }
    return v;
  }();
  return values;
}

std::vector<std::string> asTexts(const std::vector<long long>& values) {
  std::vector<std::string> texts;
  for (long long v : values) texts.push_back(std::to_string(v));
  return texts;
}

// Doubles as programs print them: a few integer digits and a fraction.
const std::vector<double>& doubles() {
  static std::vector<double> values = [] {
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> mantissa(1.0, 10.0);
    std::vector<double> v;
    for (std::size_t i = 0; i < kCount; ++i)
      v.push_back(((rng() & 1) ? -1 : 1) * mantissa(rng) * std::pow(10.0, static_cast<int>(rng() % 10) - 3));
    return v;
  }();
  return values;
}

const std::vector<std::string>& doubleTexts() {
  static std::vector<std::string> texts = [] {
    std::vector<std::string> t;
    char buf[64];
    for (double d : doubles()) {
      std::snprintf(buf, sizeof buf, "%.10g", d);
      t.push_back(buf);
    }
    return t;
  }();
  return texts;
}

void BM_Baseline_IntToChars(benchmark::State& state) {
  const auto& values = integers();
  char buf[32];
  std::size_t i = 0;
  for (auto _ : state) {
    auto r = std::to_chars(buf, buf + sizeof buf, values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(r.ptr);
  }
}
BENCHMARK(BM_Baseline_IntToChars);

void BM_IntToText(benchmark::State& state) {
  const auto& values = integers();
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  cNumberConversion::tByteArray out;
  out.setFitOnErase(false);
  out.appendElements(64);
  std::size_t i = 0;
  for (auto _ : state) {
    out.truncate(0);
    cNumberConversion::toString(values[i++ & (kCount - 1)], out, format);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_IntToText);

// Into a caller's buffer: no string at all.
void BM_IntToChars(benchmark::State& state) {
  const auto& values = integers();
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  char buf[32];
  std::size_t i = 0;
  for (auto _ : state) {
    unsigned int n = cNumberConversion::toChars(values[i++ & (kCount - 1)], buf, sizeof buf, format);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_IntToChars);

// A new string per value, against std::to_string (whose short strings need
// no allocation).
void BM_Baseline_IntToStdString(benchmark::State& state) {
  const auto& values = integers();
  std::size_t i = 0;
  for (auto _ : state) {
    std::string s = std::to_string(values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(s.data());
  }
}
BENCHMARK(BM_Baseline_IntToStdString);

void BM_IntToNewString(benchmark::State& state) {
  const auto& values = integers();
  std::size_t i = 0;
  for (auto _ : state) {
    qstd::cAsciiString s = cNumberConversion::toString(values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(s.data());
  }
}
BENCHMARK(BM_IntToNewString);

#ifdef QELBENCH_HAVE_FMT
void BM_Peer_Fmt_IntToText(benchmark::State& state) {
  const auto& values = integers();
  std::size_t i = 0;
  for (auto _ : state) {
    // fmt's fastest integer formatter, into a buffer of its own.
    fmt::format_int text(values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(text.data());
    benchmark::DoNotOptimize(text.size());
  }
}
BENCHMARK(BM_Peer_Fmt_IntToText);
#endif

void BM_Baseline_IntFromChars(benchmark::State& state) {
  static const std::vector<std::string> texts = asTexts(integers());
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = texts[i++ & (kCount - 1)];
    long long v = 0;
    std::from_chars(t.data(), t.data() + t.size(), v);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_Baseline_IntFromChars);

void BM_IntFromText(benchmark::State& state) {
  static const std::vector<std::string> texts = asTexts(integers());
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = texts[i++ & (kCount - 1)];
    long long v = cNumberConversion::fromString(t.data(), static_cast<unsigned int>(t.size()), format);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_IntFromText);

void BM_Baseline_DoubleSnprintf(benchmark::State& state) {
  const auto& values = doubles();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    int n = std::snprintf(buf, sizeof buf, "%.14g", values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_Baseline_DoubleSnprintf);

void BM_DoubleToText(benchmark::State& state) {
  const auto& values = doubles();
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  cNumberConversion::tByteArray out;
  out.setFitOnErase(false);
  out.appendElements(64);
  std::size_t i = 0;
  for (auto _ : state) {
    out.truncate(0);
    cNumberConversion::toStringFromDouble(values[i++ & (kCount - 1)], out, format);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_DoubleToText);

void BM_Baseline_DoubleToCharsPrecision(benchmark::State& state) {
  const auto& values = doubles();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    auto r = std::to_chars(buf, buf + sizeof buf, values[i++ & (kCount - 1)], std::chars_format::general, 14);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(r.ptr);
  }
}
BENCHMARK(BM_Baseline_DoubleToCharsPrecision);

void BM_DoubleToChars(benchmark::State& state) {
  const auto& values = doubles();
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    unsigned int n = cNumberConversion::toChars(values[i++ & (kCount - 1)], buf, sizeof buf, format);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_DoubleToChars);

// An explicit format: six places, trailing zeros kept.
void BM_Baseline_DoubleSnprintfFixed6(benchmark::State& state) {
  const auto& values = doubles();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    int n = std::snprintf(buf, sizeof buf, "%.6f", values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(n);
  }
}
BENCHMARK(BM_Baseline_DoubleSnprintfFixed6);

void BM_DoubleToTextFixed6(benchmark::State& state) {
  const auto& values = doubles();
  cNumberConversionFormat format;
  format.setPrecision(6);
  format.setRemoveTrailingZeros(false);
  cNumberConversion::tByteArray out;
  out.setFitOnErase(false);
  out.appendElements(64);
  std::size_t i = 0;
  for (auto _ : state) {
    out.truncate(0);
    cNumberConversion::toStringFromDouble(values[i++ & (kCount - 1)], out, format);
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_DoubleToTextFixed6);

#ifdef QELBENCH_HAVE_FMT
void BM_Peer_Fmt_DoubleToText(benchmark::State& state) {
  const auto& values = doubles();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    char* end = fmt::format_to(buf, "{:.14g}", values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(end);
  }
}
BENCHMARK(BM_Peer_Fmt_DoubleToText);

void BM_Peer_Fmt_DoubleToTextFixed6(benchmark::State& state) {
  const auto& values = doubles();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    char* end = fmt::format_to(buf, "{:.6f}", values[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(end);
  }
}
BENCHMARK(BM_Peer_Fmt_DoubleToTextFixed6);
#endif

void BM_Baseline_Strtod(benchmark::State& state) {
  const auto& texts = doubleTexts();
  std::size_t i = 0;
  for (auto _ : state) {
    double v = std::strtod(texts[i++ & (kCount - 1)].c_str(), nullptr);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_Baseline_Strtod);

void BM_DoubleFromText(benchmark::State& state) {
  const auto& texts = doubleTexts();
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = texts[i++ & (kCount - 1)];
    double v = cNumberConversion::fromStringToDouble(t.data(), static_cast<unsigned int>(t.size()), format);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_DoubleFromText);

void BM_Baseline_DoubleFromChars(benchmark::State& state) {
  const auto& texts = doubleTexts();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = texts[i++ & (kCount - 1)];
    double v = 0;
    std::from_chars(t.data(), t.data() + t.size(), v);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_Baseline_DoubleFromChars);

#ifdef QELBENCH_HAVE_FAST_FLOAT
void BM_Peer_FastFloat_DoubleFromText(benchmark::State& state) {
  const auto& texts = doubleTexts();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = texts[i++ & (kCount - 1)];
    double v = 0;
    fast_float::from_chars(t.data(), t.data() + t.size(), v);
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_Peer_FastFloat_DoubleFromText);
#endif

}  // namespace
