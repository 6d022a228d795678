#include "qelcore/ucs/cendecutf16.h"

#include <cstdint>
#include <cstring>

#include "qelcore/std/ccpufeatures.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

// The vector paths use AVX2 when the processor has it (cCpuFeatures); they
// are compiled for that target function by function, so the library runs on
// any x86 processor, and elsewhere only the portable loops are built.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define QEL_UTF16_BLOCKS 1
#include <immintrin.h>
#endif

#if defined(__GNUC__)
// The output never overlaps the characters.
#define QEL_RESTRICT __restrict__
#else
#define QEL_RESTRICT
#endif

namespace qucs {

namespace {

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
const bool MachineBigEndian = true;
#else
const bool MachineBigEndian = false;
#endif

inline std::uint16_t swapUnit(std::uint32_t u) { return static_cast<std::uint16_t>(((u & 0xFFu) << 8) | (u >> 8)); }

inline bool isSurrogate(std::uint32_t c) { return c >= 0xD800u && c <= 0xDFFFu; }

// Characters are encoded a chunk at a time: counted and checked first, then
// written into their place, while the chunk is still in the cache.
const unsigned int ChunkChars = 4096;

// The units that `n` characters (at most ChunkChars) need; `bad` becomes
// non-zero when one of them cannot be encoded. Branch-free, so that the
// compiler can use vector instructions.
unsigned int countUnits(const std::uint32_t* src, unsigned int n, std::uint32_t& bad) {
  unsigned int pairs = 0;
  std::uint32_t invalid = 0;
  for (unsigned int i = 0; i < n; ++i) {
    const std::uint32_t c = src[i];
    invalid |= static_cast<std::uint32_t>(c > 0x10FFFFu) | static_cast<std::uint32_t>(c - 0xD800u < 0x800u);
    pairs += c > 0xFFFFu;
  }
  bad |= invalid;
  return n + pairs;
}

// Writes the units of checked characters from `p` to `end` as bytes in the
// given order; returns the position behind them.
template <bool BigEndian>
unsigned char* writeUnits(const std::uint32_t* QEL_RESTRICT p, const std::uint32_t* end,
                          unsigned char* QEL_RESTRICT dst) {
  auto put = [&dst](std::uint32_t u) {
    dst[BigEndian ? 1 : 0] = static_cast<unsigned char>(u);
    dst[BigEndian ? 0 : 1] = static_cast<unsigned char>(u >> 8);
    dst += 2;
  };
  // Blocks of eight characters: those without a pair go at once, the others
  // character by character.
  for (; end - p >= 8; p += 8) {
    std::uint32_t high = 0;
    for (unsigned int j = 0; j < 8; ++j) high |= p[j] & 0xFFFF0000u;
    if (high == 0) {
      // Narrowed as units of the machine's order (swapped where that is not
      // the order asked for) and copied at once, which compilers vectorize.
      std::uint16_t units[8];
      for (unsigned int j = 0; j < 8; ++j)
        units[j] = BigEndian != MachineBigEndian ? swapUnit(p[j]) : static_cast<std::uint16_t>(p[j]);
      std::memcpy(dst, units, sizeof units);
      dst += 16;
      continue;
    }
    for (unsigned int j = 0; j < 8; ++j) {
      const std::uint32_t c = p[j];
      if (c > 0xFFFFu) {
        put(((c - 0x10000u) >> 10) | 0xD800u);
        put(((c - 0x10000u) & 0x3FFu) | 0xDC00u);
      } else {
        put(c);
      }
    }
  }
  for (; p != end; ++p) {
    const std::uint32_t c = *p;
    if (c > 0xFFFFu) {
      put(((c - 0x10000u) >> 10) | 0xD800u);
      put(((c - 0x10000u) & 0x3FFu) | 0xDC00u);
    } else {
      put(c);
    }
  }
  return dst;
}

#ifdef QEL_UTF16_BLOCKS

__attribute__((target("avx2"))) unsigned int countUnitsAvx2(const std::uint32_t* src, unsigned int n,
                                                            std::uint32_t& bad) {
  const __m256i sixteen = _mm256_set1_epi32(0x10), zero = _mm256_setzero_si256();
  const __m256i surrogateBase = _mm256_set1_epi32(0xD800);
  __m256i pairs = zero, invalid = zero;
  unsigned int i = 0;
  for (; n - i >= 8; i += 8) {
    const __m256i c = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + i));
    // Above 0x10FFFF: the top sixteen bits exceed 0x10 (compared signed, as
    // they fit in sixteen bits); a pair: they are not zero; a surrogate code
    // point: c - 0xD800 has nothing above bit 10.
    const __m256i top = _mm256_srli_epi32(c, 16);
    invalid = _mm256_or_si256(invalid, _mm256_cmpgt_epi32(top, sixteen));
    invalid = _mm256_or_si256(
        invalid, _mm256_cmpeq_epi32(_mm256_srli_epi32(_mm256_sub_epi32(c, surrogateBase), 11), zero));
    pairs = _mm256_sub_epi32(pairs, _mm256_cmpgt_epi32(top, zero));
  }
  const __m128i sum4 = _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
  const __m128i sum2 = _mm_add_epi32(sum4, _mm_shuffle_epi32(sum4, 0x4E));
  const __m128i sum1 = _mm_add_epi32(sum2, _mm_shuffle_epi32(sum2, 0xB1));
  bad |= static_cast<std::uint32_t>(!_mm256_testz_si256(invalid, invalid));
  return static_cast<unsigned int>(_mm_cvtsi128_si32(sum1)) + i + countUnits(src + i, n - i, bad);
}

// Sixteen characters at a time narrowed to units, in the machine's (little
// endian) order or swapped; blocks with pairs go through the portable loop.
template <bool BigEndian>
__attribute__((target("avx2"))) unsigned char* writeUnitsAvx2(const std::uint32_t* p, const std::uint32_t* end,
                                                               unsigned char* dst) {
  const __m256i high = _mm256_set1_epi32(static_cast<int>(0xFFFF0000u));
  const __m256i swap = _mm256_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14, 1, 0, 3, 2, 5, 4, 7, 6,
                                        9, 8, 11, 10, 13, 12, 15, 14);
  for (; end - p >= 16; p += 16) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 8));
    if (!_mm256_testz_si256(_mm256_or_si256(a, b), high)) {
      dst = writeUnits<BigEndian>(p, p + 16, dst);
      continue;
    }
    // Packing works within each half: a0-3 b0-3 | a4-7 b4-7, put in order.
    __m256i units = _mm256_permute4x64_epi64(_mm256_packus_epi32(a, b), 0xD8);
    if (BigEndian) units = _mm256_shuffle_epi8(units, swap);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), units);
    dst += 32;
  }
  return writeUnits<BigEndian>(p, end, dst);
}

#endif

// Undoes the appending and reports why.
template <typename Arr>
[[noreturn]] void failEncoding(Arr& out, unsigned int base, std::uint32_t bad) {
  out.truncate(base);
  if (bad != 0) cUCSExceptions::throwUTF16Unmappable();
  qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
}

// Appends the encoding of `text` (with the mark when asked for) to the
// bytes at `out`, in the given byte order. On an unmappable character
// nothing stays appended.
template <typename Arr>
void encodeInto(const cString& text, Arr& out, bool mark, bool bigEndian) {
  const unsigned int unitBytes = 2 / sizeof(typename Arr::ElementType);
  const unsigned int n = text.size();
  const std::uint32_t* src = text.data(true);
  const unsigned int base = out.size();
  if ((static_cast<unsigned long long>(n) + (mark ? 1 : 0)) > (0xFFFFFFFFull - base) / unitBytes)
    qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (n == 0 && !mark) return;
  // Room for one unit a character (all that text without pairs needs), so
  // that the output grows at most a few times.
  if (out._poolSize() - base < (n + 1) * unitBytes) {
    const bool fit = out.fitOnErase();
    out.setFitOnErase(false);
    out.appendElements((n + 1) * unitBytes);
    out.truncate(base);
    out.setFitOnErase(fit);
  }
  if (mark) {
    const unsigned int room = out.appendElements(unitBytes);
    unsigned char* p = reinterpret_cast<unsigned char*>(out.data() + room);
    p[bigEndian ? 0 : 1] = 0xFE;
    p[bigEndian ? 1 : 0] = 0xFF;
  }
#ifdef QEL_UTF16_BLOCKS
  const bool vector = qstd::cCpuFeatures::avx2();
#endif
  for (unsigned int at = 0; at < n; at += ChunkChars) {
    const unsigned int count = n - at < ChunkChars ? n - at : ChunkChars;
    const std::uint32_t* chunk = src + at;
    std::uint32_t bad = 0;
#ifdef QEL_UTF16_BLOCKS
    const unsigned int units = vector ? countUnitsAvx2(chunk, count, bad) : countUnits(chunk, count, bad);
#else
    const unsigned int units = countUnits(chunk, count, bad);
#endif
    if (bad != 0 || units > (0xFFFFFFFFu - out.size()) / unitBytes) failEncoding(out, base, bad);
    const unsigned int room = out.appendElements(units * unitBytes);
    unsigned char* dst = reinterpret_cast<unsigned char*>(out.data() + room);
#ifdef QEL_UTF16_BLOCKS
    if (vector) {
      if (bigEndian)
        writeUnitsAvx2<true>(chunk, chunk + count, dst);
      else
        writeUnitsAvx2<false>(chunk, chunk + count, dst);
      continue;
    }
#endif
    if (bigEndian)
      writeUnits<true>(chunk, chunk + count, dst);
    else
      writeUnits<false>(chunk, chunk + count, dst);
  }
}

// The byte order that units in the machine's order have, swapped or not.
bool unitsBigEndian(bool swapped) { return MachineBigEndian != swapped; }

// Reads zero-terminated or counted units (through `unit(i)`, already in the
// right order) and appends the characters. `more(i)` tells whether the loop
// goes on at unit i, `has(i)` whether unit i exists as the second half of a pair.
template <typename Unit, typename More, typename Has>
void readUnits(Unit unit, More more, Has has, unsigned int start, cString& out) {
  for (unsigned int i = start; more(i);) {
    const std::uint32_t u = unit(i);
    if (isSurrogate(u)) {
      if (!has(i + 1)) cUCSExceptions::throwUTF16Corrupt();
      if (u > 0xDBFFu) cUCSExceptions::throwUTF16InvalidSequence();
      const std::uint32_t low = unit(i + 1);
      if (low < 0xDC00u || low > 0xDFFFu) cUCSExceptions::throwUTF16InvalidSequence();
      out.append(static_cast<unsigned int>((((u & 0x3FFu) << 10) | (low & 0x3FFu)) + 0x10000u));
      i += 2;
    } else {
      out.append(static_cast<unsigned int>(u));
      ++i;
    }
  }
}

}  // namespace

cEnDecUTF16::cEnDecUTF16(unsigned int flags) : miFlags(flags) {}

qstd::cAsciiString cEnDecUTF16::name() const { return qstd::cAsciiString("Endec-UTF16"); }

void cEnDecUTF16::encode(const cString& text, qstd::tArray<unsigned short>& out) const {
  encodeInto(text, out, (miFlags & FlagByteOrderMark) != 0, unitsBigEndian((miFlags & FlagBigEndian) != 0));
}

void cEnDecUTF16::encode(const cString& text, qstd::tArray<char>& out) const {
  encodeInto(text, out, (miFlags & FlagByteOrderMark) != 0, (miFlags & FlagBigEndian) != 0);
}

unsigned int cEnDecUTF16::encode(const unsigned int* chars, unsigned int count, unsigned short* buffer,
                                 unsigned int size) const {
  QEL_ASSERT(chars != 0 || count == 0, "ucs/cendecutf16");
  const bool mark = (miFlags & FlagByteOrderMark) != 0;
  const bool bigEndian = unitsBigEndian((miFlags & FlagBigEndian) != 0);
  unsigned long long total = mark ? 1 : 0;
  std::uint32_t bad = 0;
  for (unsigned int at = 0; at < count; at += ChunkChars) {
    const unsigned int n = count - at < ChunkChars ? count - at : ChunkChars;
    total += countUnits(chars + at, n, bad);
  }
  if (bad != 0) cUCSExceptions::throwUTF16Unmappable();
  if (total > 0xFFFFFFFFull) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (total > size || total == 0) return static_cast<unsigned int>(total);
  // Written byte by byte in the order the units have in memory.
  unsigned char* dst = reinterpret_cast<unsigned char*>(buffer);
  if (mark) {
    dst[bigEndian ? 0 : 1] = 0xFE;
    dst[bigEndian ? 1 : 0] = 0xFF;
    dst += 2;
  }
  if (bigEndian)
    writeUnits<true>(chars, chars + count, dst);
  else
    writeUnits<false>(chars, chars + count, dst);
  return static_cast<unsigned int>(total);
}

void cEnDecUTF16::decodeUnits(const unsigned short* units, unsigned int count, cString& out) const {
  QEL_ASSERT(units != 0 || count == 0, "ucs/cendecutf16");
  if (count > 0x7FFFFFFFu) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "decodeUnits");
  // The units' bytes, in the order they have in memory. Without a known
  // order (or with a mark asked for) the mark decides, as in decodeCString:
  // 0xFEFF in the machine's order reads as the machine's order.
  const bool markDecides = (miFlags & FlagByteOrderMark) != 0 || (miFlags & (FlagLittleEndian | FlagBigEndian)) == 0;
  const cEnDecUTF16 bytes(markDecides ? static_cast<unsigned int>(FlagByteOrderMark)
                          : unitsBigEndian((miFlags & FlagBigEndian) != 0) ? static_cast<unsigned int>(FlagBigEndian)
                                                                           : static_cast<unsigned int>(FlagLittleEndian));
  bytes.decode(reinterpret_cast<const char*>(units), 2 * count, out);
}

void cEnDecUTF16::decode(const qstd::tConstArrayRef<char>& bytes, cString& out) const {
  const unsigned int n = bytes.size();
  if (n == 0) return;
  const unsigned char* src = reinterpret_cast<const unsigned char*>(bytes.data());
  if (n < 2) cUCSExceptions::throwSourceBufferExhausted();

  unsigned int start = 0;
  bool bigEndian = (miFlags & FlagBigEndian) != 0;
  if ((miFlags & FlagByteOrderMark) != 0 || (miFlags & (FlagLittleEndian | FlagBigEndian)) == 0) {
    if (src[0] == 0xFF && src[1] == 0xFE) {
      bigEndian = false;
    } else if (src[0] == 0xFE && src[1] == 0xFF) {
      bigEndian = true;
    } else {
      cUCSExceptions::throwUTF16InvalidByteOrderMark();
    }
    start = 2;
  }
  // Units are counted from the start of the data; an odd byte at the end is
  // a unit without its second byte.
  const unsigned int units = n / 2;
  auto more = [units, n](unsigned int i) {
    if (i < units) return true;
    if ((n & 1u) != 0) cUCSExceptions::throwSourceBufferExhausted();
    return false;
  };
  auto has = [units](unsigned int i) { return i < units; };
  if (bigEndian) {
    readUnits([src](unsigned int i) { return (std::uint32_t(src[2 * i]) << 8) | src[2 * i + 1]; }, more, has,
                start / 2, out);
  } else {
    readUnits([src](unsigned int i) { return std::uint32_t(src[2 * i]) | (std::uint32_t(src[2 * i + 1]) << 8); },
                more, has, start / 2, out);
  }
}

void cEnDecUTF16::encodeCString(const cString& text, qstd::tArray<unsigned short>& out) const {
  encode(text, out);
  out.append(static_cast<unsigned short>(0));
}

void cEnDecUTF16::decodeCString(const unsigned short* units, cString& out) const {
  QEL_ASSERT(units != 0, "ucs/cendecutf16");
  if (units[0] == 0) return;
  unsigned int start = 0;
  bool swapped = (miFlags & FlagBigEndian) != 0;
  if ((miFlags & FlagByteOrderMark) != 0 || (miFlags & (FlagLittleEndian | FlagBigEndian)) == 0) {
    if (units[0] == 0xFEFFu) {
      swapped = false;
    } else if (units[0] == 0xFFFEu) {
      swapped = true;
    } else {
      cUCSExceptions::throwUTF16InvalidByteOrderMark();
    }
    start = 1;
  }
  auto has = [units](unsigned int i) { return units[i] != 0; };
  if (swapped) {
    readUnits([units](unsigned int i) { return std::uint32_t(swapUnit(units[i])); }, has, has, start, out);
  } else {
    readUnits([units](unsigned int i) { return std::uint32_t(units[i]); }, has, has, start, out);
  }
}

}  // namespace qucs
