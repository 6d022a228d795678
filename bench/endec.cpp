// The UTF-8 and UTF-16 endecs against a plain scalar loop and iconv, and
// against utf8cpp (UTF-8 both ways) and ICU (characters to UTF-16) when they
// are installed, on 1 MiB of pure ASCII and 1 MiB of mixed text (accented
// Latin, Cyrillic, CJK and some characters outside the basic plane). All
// output buffers are reused, so the loops measure conversion and not
// allocation. Throughput is counted in bytes of the text's UTF-8 form for
// every direction, so that the figures of one text compare.
//
// The _Portable runs are the endecs with the vector units switched off
// (cCpuFeatures), as on a processor without AVX2.
#include <cstdint>
#include <cstring>
#include <iconv.h>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef QELBENCH_HAVE_UTF8CPP
#include <utf8.h>
#endif
#ifdef QELBENCH_HAVE_ICU
#include <unicode/ustring.h>
#endif

#include "qelcore/std/ccpufeatures.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

#include "benchutil.h"

namespace {

const unsigned int TextBytes = 1u << 20;

enum Kind { Ascii = 0, Mixed = 1 };

struct cInput {
  qstd::tArray<char> utf8;  // the text as UTF-8
  qucs::cString text;       // the same text as characters
  std::vector<std::uint32_t> utf32;
};

// Words of one script at a time, separated by blanks, as text is written.
unsigned int nextChar(unsigned int& seed, Kind kind, unsigned int& script, unsigned int& wordLeft) {
  seed = seed * 1103515245u + 12345u;
  const unsigned int r = seed >> 8;
  if (kind == Ascii) return r % 13 == 0 ? ' ' : 'a' + r % 26;
  if (wordLeft == 0) {
    script = r % 10;
    wordLeft = 2 + r % 8;
    return ' ';
  }
  --wordLeft;
  switch (script) {
    case 0:
    case 1:
    case 2:
      return 'a' + r % 26;  // ASCII
    case 3:
    case 4:
      return r % 3 == 0 ? 0xC0 + r % 64 : 'a' + r % 26;  // accented Latin
    case 5:
    case 6:
      return 0x410 + r % 64;  // Cyrillic
    case 7:
    case 8:
      return 0x4E00 + r % 0x5000;  // CJK
    default:
      return r % 2 ? 0x1F600 + r % 80 : 0x20000 + r % 0x1000;  // four-byte characters
  }
}

const cInput& input(Kind kind) {
  static cInput inputs[2];
  cInput& in = inputs[kind];
  if (in.utf8.size() != 0) return in;
  qelbench::warmMemory(64u << 20);
  unsigned int seed = 42 + kind, script = 0, wordLeft = 0;
  in.utf8.setGrowStep(16);
  in.text.setGrowStep(16);
  while (true) {
    const unsigned int c = nextChar(seed, kind, script, wordLeft);
    qstd::tArray<char> one;
    qucs::cEnDecUTF8::encodeChar(c, one);
    if (in.utf8.size() + one.size() > TextBytes) break;
    in.utf8.append(one.data(), one.size());
    in.text.append(c);
    in.utf32.push_back(c);
  }
  return in;
}

void finish(benchmark::State& state, Kind kind) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * input(kind).utf8.size());
  state.SetLabel(kind == Ascii ? "ascii" : "mixed");
}

// ---------------------------------------------------------------- UTF-8 -> characters

void BM_DecodeUTF8_QEL(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  const qucs::cEnDecUTF8 endec;
  qucs::cString out;
  out.setFitOnErase(false);
  for (auto _ : state) {
    out.truncate(0);
    endec.decode(in.utf8, out);
    benchmark::DoNotOptimize(out.data());
  }
  if (out.size() != in.text.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}

// The textbook decoder: one lead byte at a time.
void BM_DecodeUTF8_ScalarLoop(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<std::uint32_t> out(in.utf8.size());
  const unsigned char* src = reinterpret_cast<const unsigned char*>(in.utf8.data());
  const std::size_t n = in.utf8.size();
  std::size_t k = 0;
  for (auto _ : state) {
    k = 0;
    for (std::size_t i = 0; i < n;) {
      const unsigned char b = src[i];
      std::uint32_t c;
      if (b < 0x80) {
        c = b;
        i += 1;
      } else if (b < 0xE0) {
        c = ((b & 0x1Fu) << 6) | (src[i + 1] & 0x3Fu);
        i += 2;
      } else if (b < 0xF0) {
        c = ((b & 0x0Fu) << 12) | ((src[i + 1] & 0x3Fu) << 6) | (src[i + 2] & 0x3Fu);
        i += 3;
      } else {
        c = ((b & 0x07u) << 18) | ((src[i + 1] & 0x3Fu) << 12) | ((src[i + 2] & 0x3Fu) << 6) | (src[i + 3] & 0x3Fu);
        i += 4;
      }
      out[k++] = c;
    }
    benchmark::DoNotOptimize(out.data());
  }
  if (k != in.text.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}

// iconv converts between byte buffers; `fromCode` -> `toCode`.
void runIconv(benchmark::State& state, const char* toCode, const char* fromCode, const char* src, std::size_t n,
              std::size_t outBytes) {
  iconv_t cd = iconv_open(toCode, fromCode);
  if (cd == reinterpret_cast<iconv_t>(-1)) {
    state.SkipWithError("iconv_open failed");
    return;
  }
  std::vector<char> out(outBytes);
  for (auto _ : state) {
    char* in = const_cast<char*>(src);
    std::size_t inLeft = n;
    char* dst = out.data();
    std::size_t outLeft = out.size();
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    if (iconv(cd, &in, &inLeft, &dst, &outLeft) == static_cast<std::size_t>(-1) || inLeft != 0) {
      state.SkipWithError("iconv failed");
      break;
    }
    benchmark::DoNotOptimize(out.data());
  }
  iconv_close(cd);
}

void BM_DecodeUTF8_Iconv(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  runIconv(state, "UTF-32LE", "UTF-8", in.utf8.data(), in.utf8.size(), 4 * static_cast<std::size_t>(in.utf8.size()));
  finish(state, kind);
}

#ifdef QELBENCH_HAVE_UTF8CPP
// The checked conversion, which is what a caller without other means uses.
void BM_DecodeUTF8_Utf8cpp(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<std::uint32_t> out(in.utf8.size());
  const char* src = in.utf8.data();
  std::size_t k = 0;
  for (auto _ : state) {
    k = static_cast<std::size_t>(utf8::utf8to32(src, src + in.utf8.size(), out.begin()) - out.begin());
    benchmark::DoNotOptimize(out.data());
  }
  if (k != in.text.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}
#endif

// ---------------------------------------------------------------- characters -> UTF-8

void BM_EncodeUTF8_QEL(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  const qucs::cEnDecUTF8 endec;
  qstd::tArray<char> out;
  out.setFitOnErase(false);
  for (auto _ : state) {
    out.truncate(0);
    endec.encode(in.text, out);
    benchmark::DoNotOptimize(out.data());
  }
  if (out.size() != in.utf8.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}

void BM_EncodeUTF8_Portable(benchmark::State& state) {
  qstd::cCpuFeatures::setVectorUnitsEnabled(false);
  BM_EncodeUTF8_QEL(state);
  qstd::cCpuFeatures::setVectorUnitsEnabled(true);
}

#ifdef QELBENCH_HAVE_UTF8CPP
void BM_EncodeUTF8_Utf8cpp(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<char> out(4 * in.utf32.size());
  std::size_t k = 0;
  for (auto _ : state) {
    k = static_cast<std::size_t>(utf8::utf32to8(in.utf32.begin(), in.utf32.end(), out.data()) - out.data());
    benchmark::DoNotOptimize(out.data());
  }
  if (k != in.utf8.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}
#endif

void BM_EncodeUTF8_ScalarLoop(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<unsigned char> out(4 * in.utf32.size());
  std::size_t k = 0;
  for (auto _ : state) {
    k = 0;
    for (std::uint32_t c : in.utf32) {
      if (c < 0x80) {
        out[k++] = static_cast<unsigned char>(c);
      } else if (c < 0x800) {
        out[k++] = static_cast<unsigned char>(0xC0 | (c >> 6));
        out[k++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
      } else if (c < 0x10000) {
        out[k++] = static_cast<unsigned char>(0xE0 | (c >> 12));
        out[k++] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        out[k++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
      } else {
        out[k++] = static_cast<unsigned char>(0xF0 | (c >> 18));
        out[k++] = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
        out[k++] = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
        out[k++] = static_cast<unsigned char>(0x80 | (c & 0x3F));
      }
    }
    benchmark::DoNotOptimize(out.data());
  }
  if (k != in.utf8.size()) state.SkipWithError("wrong result");
  finish(state, kind);
}

void BM_EncodeUTF8_Iconv(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  runIconv(state, "UTF-8", "UTF-32LE", reinterpret_cast<const char*>(in.utf32.data()), 4 * in.utf32.size(),
           4 * in.utf32.size());
  finish(state, kind);
}

// ---------------------------------------------------------------- characters -> UTF-16 bytes

void BM_EncodeUTF16_QEL(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  const qucs::cEnDecUTF16 endec(qucs::cEnDecUTF16::FlagLittleEndian);
  qstd::tArray<char> out;
  out.setFitOnErase(false);
  for (auto _ : state) {
    out.truncate(0);
    endec.encode(in.text, out);
    benchmark::DoNotOptimize(out.data());
  }
  finish(state, kind);
}

void BM_EncodeUTF16_Portable(benchmark::State& state) {
  qstd::cCpuFeatures::setVectorUnitsEnabled(false);
  BM_EncodeUTF16_QEL(state);
  qstd::cCpuFeatures::setVectorUnitsEnabled(true);
}

#ifdef QELBENCH_HAVE_ICU
// Native (little-endian) UTF-16 units from code points.
void BM_EncodeUTF16_ICU(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<UChar> out(2 * in.utf32.size());
  const UChar32* src = reinterpret_cast<const UChar32*>(in.utf32.data());
  for (auto _ : state) {
    UErrorCode error = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF32(out.data(), static_cast<std::int32_t>(out.size()), &length, src,
                   static_cast<std::int32_t>(in.utf32.size()), &error);
    if (U_FAILURE(error)) {
      state.SkipWithError("ICU failed");
      break;
    }
    benchmark::DoNotOptimize(out.data());
  }
  finish(state, kind);
}
#endif

void BM_EncodeUTF16_ScalarLoop(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  std::vector<unsigned char> out(4 * in.utf32.size());
  for (auto _ : state) {
    std::size_t k = 0;
    for (std::uint32_t c : in.utf32) {
      if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
        state.SkipWithError("unmappable");
        break;
      }
      if (c > 0xFFFF) {
        const std::uint32_t hi = ((c - 0x10000) >> 10) | 0xD800, lo = ((c - 0x10000) & 0x3FF) | 0xDC00;
        out[k++] = static_cast<unsigned char>(hi);
        out[k++] = static_cast<unsigned char>(hi >> 8);
        out[k++] = static_cast<unsigned char>(lo);
        out[k++] = static_cast<unsigned char>(lo >> 8);
      } else {
        out[k++] = static_cast<unsigned char>(c);
        out[k++] = static_cast<unsigned char>(c >> 8);
      }
    }
    benchmark::DoNotOptimize(out.data());
  }
  finish(state, kind);
}

void BM_EncodeUTF16_Iconv(benchmark::State& state) {
  const Kind kind = static_cast<Kind>(state.range(0));
  const cInput& in = input(kind);
  runIconv(state, "UTF-16LE", "UTF-32LE", reinterpret_cast<const char*>(in.utf32.data()), 4 * in.utf32.size(),
           4 * in.utf32.size());
  finish(state, kind);
}

BENCHMARK(BM_DecodeUTF8_QEL)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_DecodeUTF8_ScalarLoop)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_DecodeUTF8_Iconv)->Arg(Ascii)->Arg(Mixed);
#ifdef QELBENCH_HAVE_UTF8CPP
BENCHMARK(BM_DecodeUTF8_Utf8cpp)->Arg(Ascii)->Arg(Mixed);
#endif
BENCHMARK(BM_EncodeUTF8_QEL)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_EncodeUTF8_Portable)->Arg(Ascii)->Arg(Mixed);
#ifdef QELBENCH_HAVE_UTF8CPP
BENCHMARK(BM_EncodeUTF8_Utf8cpp)->Arg(Ascii)->Arg(Mixed);
#endif
BENCHMARK(BM_EncodeUTF8_ScalarLoop)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_EncodeUTF8_Iconv)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_EncodeUTF16_QEL)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_EncodeUTF16_Portable)->Arg(Ascii)->Arg(Mixed);
#ifdef QELBENCH_HAVE_ICU
BENCHMARK(BM_EncodeUTF16_ICU)->Arg(Ascii)->Arg(Mixed);
#endif
BENCHMARK(BM_EncodeUTF16_ScalarLoop)->Arg(Ascii)->Arg(Mixed);
BENCHMARK(BM_EncodeUTF16_Iconv)->Arg(Ascii)->Arg(Mixed);

}  // namespace
