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

// Runs `f(value, buffer)` over the values in turn; `f` writes into the
// 64-byte buffer and returns something that depends on the text.
template <class T, class F>
void eachValue(benchmark::State& state, const std::vector<T>& values, F f) {
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    auto r = f(values[i++ & (kCount - 1)], buf);
    benchmark::DoNotOptimize(buf);
    benchmark::DoNotOptimize(r);
  }
}

// Runs `f(value, out)` over the values in turn, appending to a byte array
// that keeps its room.
template <class T, class F>
void eachValueAppended(benchmark::State& state, const std::vector<T>& values, F f) {
  cNumberConversion::tByteArray out;
  out.setFitOnErase(false);
  out.appendElements(64);
  std::size_t i = 0;
  for (auto _ : state) {
    out.truncate(0);
    f(values[i++ & (kCount - 1)], out);
    benchmark::DoNotOptimize(out.data());
  }
}

const cNumberConversionFormat& fixed6() {
  static cNumberConversionFormat format = [] {
    cNumberConversionFormat f;
    f.setPrecision(6);
    f.setRemoveTrailingZeros(false);
    return f;
  }();
  return format;
}

// --- integer to text

void BM_Baseline_IntToChars(benchmark::State& state) {
  eachValue(state, integers(), [](long long v, char* buf) { return std::to_chars(buf, buf + 64, v).ptr; });
}
BENCHMARK(BM_Baseline_IntToChars);

void BM_IntToText(benchmark::State& state) {
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValueAppended(state, integers(), [&](long long v, cNumberConversion::tByteArray& out) {
    cNumberConversion::toString(v, out, format);
  });
}
BENCHMARK(BM_IntToText);

// Into a caller's buffer: no string at all.
void BM_IntToChars(benchmark::State& state) {
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValue(state, integers(), [&](long long v, char* buf) { return cNumberConversion::toChars(v, buf, 64, format); });
}
BENCHMARK(BM_IntToChars);

// A new string per value, against std::to_string (whose short strings need
// no allocation).
void BM_Baseline_IntToStdString(benchmark::State& state) {
  eachValue(state, integers(), [](long long v, char*) { return std::to_string(v).size(); });
}
BENCHMARK(BM_Baseline_IntToStdString);

void BM_IntToNewString(benchmark::State& state) {
  eachValue(state, integers(), [](long long v, char*) { return cNumberConversion::toString(v).size(); });
}
BENCHMARK(BM_IntToNewString);

#ifdef QELBENCH_HAVE_FMT
// fmt's fastest integer formatter, into a buffer of its own.
void BM_Peer_Fmt_IntToText(benchmark::State& state) {
  eachValue(state, integers(), [](long long v, char*) {
    fmt::format_int text(v);
    benchmark::DoNotOptimize(text.data());
    return text.size();
  });
}
BENCHMARK(BM_Peer_Fmt_IntToText);
#endif

// --- text to integer

void BM_Baseline_IntFromChars(benchmark::State& state) {
  static const std::vector<std::string> texts = asTexts(integers());
  eachValue(state, texts, [](const std::string& t, char*) {
    long long v = 0;
    std::from_chars(t.data(), t.data() + t.size(), v);
    return v;
  });
}
BENCHMARK(BM_Baseline_IntFromChars);

void BM_IntFromText(benchmark::State& state) {
  static const std::vector<std::string> texts = asTexts(integers());
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValue(state, texts, [&](const std::string& t, char*) {
    return cNumberConversion::fromString(t.data(), static_cast<unsigned int>(t.size()), format);
  });
}
BENCHMARK(BM_IntFromText);

// --- double to text, the default format (precision 14, trailing zeros removed)

void BM_Baseline_DoubleSnprintf(benchmark::State& state) {
  eachValue(state, doubles(), [](double v, char* buf) { return std::snprintf(buf, 64, "%.14g", v); });
}
BENCHMARK(BM_Baseline_DoubleSnprintf);

void BM_DoubleToText(benchmark::State& state) {
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValueAppended(state, doubles(), [&](double v, cNumberConversion::tByteArray& out) {
    cNumberConversion::toStringFromDouble(v, out, format);
  });
}
BENCHMARK(BM_DoubleToText);

void BM_DoubleToChars(benchmark::State& state) {
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValue(state, doubles(), [&](double v, char* buf) { return cNumberConversion::toChars(v, buf, 64, format); });
}
BENCHMARK(BM_DoubleToChars);

void BM_Baseline_DoubleToCharsPrecision(benchmark::State& state) {
  eachValue(state, doubles(), [](double v, char* buf) {
    return std::to_chars(buf, buf + 64, v, std::chars_format::general, 14).ptr;
  });
}
BENCHMARK(BM_Baseline_DoubleToCharsPrecision);

// --- double to text, an explicit format: six places, trailing zeros kept

void BM_Baseline_DoubleSnprintfFixed6(benchmark::State& state) {
  eachValue(state, doubles(), [](double v, char* buf) { return std::snprintf(buf, 64, "%.6f", v); });
}
BENCHMARK(BM_Baseline_DoubleSnprintfFixed6);

void BM_DoubleToTextFixed6(benchmark::State& state) {
  const cNumberConversionFormat& format = fixed6();
  eachValueAppended(state, doubles(), [&](double v, cNumberConversion::tByteArray& out) {
    cNumberConversion::toStringFromDouble(v, out, format);
  });
}
BENCHMARK(BM_DoubleToTextFixed6);

#ifdef QELBENCH_HAVE_FMT
void BM_Peer_Fmt_DoubleToText(benchmark::State& state) {
  eachValue(state, doubles(), [](double v, char* buf) { return fmt::format_to(buf, "{:.14g}", v); });
}
BENCHMARK(BM_Peer_Fmt_DoubleToText);

void BM_Peer_Fmt_DoubleToTextFixed6(benchmark::State& state) {
  eachValue(state, doubles(), [](double v, char* buf) { return fmt::format_to(buf, "{:.6f}", v); });
}
BENCHMARK(BM_Peer_Fmt_DoubleToTextFixed6);
#endif

// --- text to double

void BM_Baseline_Strtod(benchmark::State& state) {
  eachValue(state, doubleTexts(), [](const std::string& t, char*) { return std::strtod(t.c_str(), nullptr); });
}
BENCHMARK(BM_Baseline_Strtod);

void BM_DoubleFromText(benchmark::State& state) {
  const cNumberConversionFormat& format = cNumberConversionFormat::systemDefault();
  eachValue(state, doubleTexts(), [&](const std::string& t, char*) {
    return cNumberConversion::fromStringToDouble(t.data(), static_cast<unsigned int>(t.size()), format);
  });
}
BENCHMARK(BM_DoubleFromText);

void BM_Baseline_DoubleFromChars(benchmark::State& state) {
  eachValue(state, doubleTexts(), [](const std::string& t, char*) {
    double v = 0;
    std::from_chars(t.data(), t.data() + t.size(), v);
    return v;
  });
}
BENCHMARK(BM_Baseline_DoubleFromChars);

#ifdef QELBENCH_HAVE_FAST_FLOAT
void BM_Peer_FastFloat_DoubleFromText(benchmark::State& state) {
  eachValue(state, doubleTexts(), [](const std::string& t, char*) {
    double v = 0;
    fast_float::from_chars(t.data(), t.data() + t.size(), v);
    return v;
  });
}
BENCHMARK(BM_Peer_FastFloat_DoubleFromText);
#endif

}  // namespace
