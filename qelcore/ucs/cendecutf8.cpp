#include "qelcore/ucs/cendecutf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "qelcore/qelinline.h"
#include "qelcore/std/ccpufeatures.h"
#include "qelcore/std/cstdexceptions.h"

#if defined(__GNUC__)
// The output never overlaps the characters: saying so lets the compiler
// keep them in registers across the byte stores.
#define QEL_RESTRICT __restrict__
#else
#define QEL_RESTRICT
#endif
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

// The block decoder below uses AVX2 when the processor has it; it is compiled
// for that target function by function, so the library itself still runs on
// any x86 processor, and elsewhere only the portable loop is built.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define QEL_UTF8_BLOCKS 1
#include <immintrin.h>
#endif

namespace qucs {

namespace {

// Marks of the first byte by sequence length (index 2 to 5).
const unsigned char LeadMark[6] = {0x00, 0x00, 0xC0, 0xE0, 0xF0, 0xF8};

// What the accumulated bytes of a sequence with that many continuation bytes
// carry beyond the character: the lead marks and the 0x80 of each
// continuation byte, all shifted into place.
const std::uint32_t SequenceOffset[4] = {0x0u, 0x3080u, 0xE2080u, 0x3C82080u};

inline unsigned int encodedLength(std::uint32_t c) {
  // The thresholds 0x80, 0x800, 0x10000 and 200000 (decimal on purpose: see
  // the class comment) are all multiples of 64. Compared after dropping six
  // bits the values fit a signed int, which vector units compare directly.
  const std::int32_t t = static_cast<std::int32_t>(c >> 6);
  return 1u + (t >= 2) + (t >= 32) + (t >= 1024) + (t >= 3125);
}

// Writes the sequence of `c` (length `len` > 1) to `dst`.
inline void writeSequence(std::uint32_t c, unsigned int len, unsigned char* dst) {
  for (unsigned int i = len - 1; i > 0; --i) {
    dst[i] = static_cast<unsigned char>(0x80u | (c & 0x3Fu));
    c >>= 6;
  }
  dst[0] = static_cast<unsigned char>(c | LeadMark[len]);
}

// Writes the sequence of `c` and returns the position behind it.
inline unsigned char* writeChar(std::uint32_t c, unsigned char* dst) {
  if (c < 0x80u) {
    *dst = static_cast<unsigned char>(c);
    return dst + 1;
  }
  if (c < 0x800u) {
    dst[0] = static_cast<unsigned char>(0xC0u | (c >> 6));
    dst[1] = static_cast<unsigned char>(0x80u | (c & 0x3Fu));
    return dst + 2;
  }
  if (c < 0x10000u) {
    dst[0] = static_cast<unsigned char>(0xE0u | (c >> 12));
    dst[1] = static_cast<unsigned char>(0x80u | ((c >> 6) & 0x3Fu));
    dst[2] = static_cast<unsigned char>(0x80u | (c & 0x3Fu));
    return dst + 3;
  }
  if (c < 200000u) {
    dst[0] = static_cast<unsigned char>(0xF0u | (c >> 18));
    dst[1] = static_cast<unsigned char>(0x80u | ((c >> 12) & 0x3Fu));
    dst[2] = static_cast<unsigned char>(0x80u | ((c >> 6) & 0x3Fu));
    dst[3] = static_cast<unsigned char>(0x80u | (c & 0x3Fu));
    return dst + 4;
  }
  const unsigned int len = encodedLength(c);
  writeSequence(c, len, dst);
  return dst + len;
}

// Continuation bytes announced by each lead byte: 0x80-0xBF 0 (a stray
// continuation byte stands for itself), then 1, 2, 3, and 4 to 7 for the
// forms this decoder does not support.
struct cLeadTable {
  unsigned char count[256];
  constexpr cLeadTable() : count{} {
    for (unsigned int b = 0; b < 256; ++b)
      count[b] = static_cast<unsigned char>(b < 0xC0    ? 0
                                            : b < 0xE0  ? 1
                                            : b < 0xF0  ? 2
                                            : b < 0xF8  ? 3
                                            : b < 0xFC  ? 4
                                            : b < 0xFE  ? 5
                                            : b == 0xFE ? 6
                                                        : 7);
  }
};
constexpr cLeadTable LeadTable;

inline std::uint64_t load64(const unsigned char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

inline bool plainAscii(std::uint64_t w) { return (w & 0x8080808080808080ull) == 0; }

#ifdef QEL_UTF8_BLOCKS

// Shuffles that move the 32-bit lanes named by a four-bit mask to the front,
// and how many lanes that are.
struct cPackTable {
  unsigned char shuffle[16][16];
  unsigned char count[16];
  constexpr cPackTable() : shuffle{}, count{} {
    for (unsigned int m = 0; m < 16; ++m) {
      unsigned int n = 0;
      for (unsigned int lane = 0; lane < 4; ++lane)
        if (m & (1u << lane)) {
          for (unsigned int b = 0; b < 4; ++b) shuffle[m][4 * n + b] = static_cast<unsigned char>(4 * lane + b);
          ++n;
        }
      for (unsigned int i = 4 * n; i < 16; ++i) shuffle[m][i] = 0x80;
      count[m] = static_cast<unsigned char>(n);
    }
  }
};
constexpr cPackTable PackTable;

bool haveBlockDecoder() { return qstd::cCpuFeatures::avx2(); }

// Decodes sixteen-byte blocks from `p` while at least sixteen bytes are left
// and returns where it stopped; `d` advances over the characters written.
//
// A block is taken only when its structure is plain: every byte that a lead
// byte announces as part of its sequence is a 10xxxxxx byte, every other byte
// is not, and no lead byte announces more than three continuation bytes. Then
// masking the marker bits off yields exactly what the byte-wise loop computes
// with its offsets. Anything else (stray continuation bytes, unsupported lead
// bytes, sequences whose continuation bytes are not 10xxxxxx) stops the blocks
// and is left to that loop, with its errors. A block yields the sequences that
// begin in its first twelve bytes, which always end inside it.
//
// The caller excludes zero bytes: the input ends before the first one. Each
// group stores four characters, of which only those of lead bytes are kept;
// the stores stay inside the room for one character a byte, since sixteen
// bytes are left and no character is shorter than a byte.
__attribute__((target("avx2"))) const unsigned char* decodeBlocks(const unsigned char* p, const unsigned char* end,
                                                                  std::uint32_t*& d) {
  // By the high nibble of each byte: the mask that leaves the bits of the
  // character, and by how far the four-byte sum of a lead byte is shifted down.
  // No byte keeps more than six bits, so that the bytes behind a sequence never
  // carry into it; bit 6 of an ASCII character is added at the end.
  const __m128i valueMask =
      _mm_setr_epi8(0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x3F, 0x1F, 0x1F, 0x0F, 0x07);
  const __m128i asciiTopMask = _mm_setr_epi8(0x40, 0x40, 0x40, 0x40, 0x40, 0x40, 0x40, 0x40, 0, 0, 0, 0, 0, 0, 0, 0);
  const __m128i shiftDown = _mm_setr_epi8(18, 18, 18, 18, 18, 18, 18, 18, 0, 0, 0, 0, 12, 12, 6, 0);
  const __m128i lowNibble = _mm_set1_epi8(0x0F);
  // Lane j of group k gathers the bytes 4k+j+1, 4k+j, 4k+j+3, 4k+j+2: two
  // multiply-adds then give b0 << 18 | b1 << 12 | b2 << 6 | b3.
  const __m128i gather[3] = {_mm_setr_epi8(1, 0, 3, 2, 2, 1, 4, 3, 3, 2, 5, 4, 4, 3, 6, 5),
                             _mm_setr_epi8(5, 4, 7, 6, 6, 5, 8, 7, 7, 6, 9, 8, 8, 7, 10, 9),
                             _mm_setr_epi8(9, 8, 11, 10, 10, 9, 12, 11, 11, 10, 13, 12, 12, 11, 14, 13)};
  const __m128i shiftOf[3] = {_mm_setr_epi8(0, -1, -1, -1, 1, -1, -1, -1, 2, -1, -1, -1, 3, -1, -1, -1),
                              _mm_setr_epi8(4, -1, -1, -1, 5, -1, -1, -1, 6, -1, -1, -1, 7, -1, -1, -1),
                              _mm_setr_epi8(8, -1, -1, -1, 9, -1, -1, -1, 10, -1, -1, -1, 11, -1, -1, -1)};
  const __m128i pairWeights = _mm_set1_epi32(0x40014001);  // bytes 1, 64, 1, 64
  const __m128i quadWeights = _mm_set1_epi32(0x00011000);  // words 4096, 1
  std::uint32_t* out = d;
  while (end - p >= 16) {
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const unsigned int bit7 = static_cast<unsigned int>(_mm_movemask_epi8(b));
    if (bit7 == 0) {
      __m128i* o = reinterpret_cast<__m128i*>(out);
      _mm_storeu_si128(o, _mm_cvtepu8_epi32(b));
      _mm_storeu_si128(o + 1, _mm_cvtepu8_epi32(_mm_srli_si128(b, 4)));
      _mm_storeu_si128(o + 2, _mm_cvtepu8_epi32(_mm_srli_si128(b, 8)));
      _mm_storeu_si128(o + 3, _mm_cvtepu8_epi32(_mm_srli_si128(b, 12)));
      p += 16;
      out += 16;
      continue;
    }
    // Bits 6 to 3 of every byte, by doubling the bytes.
    const __m128i b2 = _mm_add_epi8(b, b), b4 = _mm_add_epi8(b2, b2), b8 = _mm_add_epi8(b4, b4);
    const unsigned int bit6 = static_cast<unsigned int>(_mm_movemask_epi8(b2));
    const unsigned int bit5 = static_cast<unsigned int>(_mm_movemask_epi8(b4));
    const unsigned int bit4 = static_cast<unsigned int>(_mm_movemask_epi8(b8));
    const unsigned int bit3 = static_cast<unsigned int>(_mm_movemask_epi8(_mm_add_epi8(b8, b8)));
    const unsigned int cont = bit7 & ~bit6;
    const unsigned int two = bit7 & bit6, three = two & bit5, four = three & bit4;
    const unsigned int announced = ((two << 1) | (three << 2) | (four << 3)) & 0xFFFFu;
    if (announced != cont || (four & bit3) != 0) break;
    const unsigned int lead = ~cont & 0xFFFFu;

    const __m128i nibble = _mm_and_si128(_mm_srli_epi16(b, 4), lowNibble);
    const __m128i bits = _mm_and_si128(b, _mm_shuffle_epi8(valueMask, nibble));
    const __m128i shifts = _mm_shuffle_epi8(shiftDown, nibble);
    const __m128i asciiTop = _mm_and_si128(b, _mm_shuffle_epi8(asciiTopMask, nibble));
    for (unsigned int k = 0; k < 3; ++k) {
      const __m128i quad = _mm_shuffle_epi8(bits, gather[k]);
      __m128i v = _mm_madd_epi16(_mm_maddubs_epi16(quad, pairWeights), quadWeights);
      v = _mm_srlv_epi32(v, _mm_shuffle_epi8(shifts, shiftOf[k]));
      v = _mm_or_si128(v, _mm_shuffle_epi8(asciiTop, shiftOf[k]));
      const unsigned int m = (lead >> (4 * k)) & 0xFu;
      v = _mm_shuffle_epi8(v, _mm_loadu_si128(reinterpret_cast<const __m128i*>(PackTable.shuffle[m])));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out), v);
      out += PackTable.count[m];
    }
    // The next sequence begins at the first lead byte from byte 12 on.
    p += 12 + static_cast<unsigned int>(__builtin_ctz(lead >> 12));
  }
  d = out;
  return p;
}

#endif

// The decoder's errors, out of the way of the loop. `done` receives the
// characters decoded before the error.
[[noreturn]] QEL_NOINLINE void endOfData(unsigned int& done, std::ptrdiff_t written, unsigned int index) {
  done = static_cast<unsigned int>(written);
  cUCSExceptions::throwUTF8UnexpectedEnd(index);
}

[[noreturn]] QEL_NOINLINE void unsupportedLength(unsigned int& done, std::ptrdiff_t written, unsigned int length) {
  done = static_cast<unsigned int>(written);
  cUCSExceptions::throwUTF8UnsupportedLength(length);
}

// Decodes `n` bytes into `dst` (room for `n` characters) and returns the
// number of characters; on an error `done` holds those written before it.
//
// A zero byte always ends decoding with an error, as a first byte or inside a
// sequence, and reads exactly like the zero padding behind the input. So the
// bytes before the first zero are decoded as if they were the whole input,
// and the loop never has to look for zero bytes.
unsigned int decodeBytes(const unsigned char* src, unsigned int n, std::uint32_t* dst, unsigned int& done) {
  const void* zero = std::memchr(src, 0, n);
  const unsigned char* p = src;
  const unsigned char* const end = zero != nullptr ? static_cast<const unsigned char*>(zero) : src + n;
  std::uint32_t* d = dst;
  // The byte-wise loop runs up to `blocksFrom`, then the block decoder takes
  // over. After a block it refused, the loop goes on alone until it has passed
  // that block, and further each time the block decoder refuses at once, so
  // that input it cannot take (such as text full of stray continuation bytes)
  // costs little.
  const unsigned char* blocksFrom = end;
#ifdef QEL_UTF8_BLOCKS
  const bool blocks = haveBlockDecoder();
  unsigned int refused = 0;
#endif
  while (p != end) {
#ifdef QEL_UTF8_BLOCKS
    if (blocks && end - p >= 16) {
      const unsigned char* const from = p;
      p = decodeBlocks(p, end, d);
      if (p == end) break;
      refused = p != from ? 0 : refused < 6 ? refused + 1 : 6;
      blocksFrom = end - p > (16 << refused) ? p + (16 << refused) : end;
    } else {
      blocksFrom = end;
    }
#endif
    while (p < blocksFrom) {
      const unsigned char lead = *p;
      if (lead < 0x80) {
        // ASCII: whole blocks of sixteen or eight bytes where possible, else
        // byte by byte up to the next byte that is not ASCII.
        if (end - p >= 16 && plainAscii(load64(p) | load64(p + 8))) {
          do {
            for (unsigned int j = 0; j < 16; ++j) d[j] = p[j];
            p += 16;
            d += 16;
          } while (p < blocksFrom && end - p >= 16 && plainAscii(load64(p) | load64(p + 8)));
        } else if (end - p >= 8 && plainAscii(load64(p))) {
          for (unsigned int j = 0; j < 8; ++j) d[j] = p[j];
          p += 8;
          d += 8;
        } else {
          do {
            *d++ = *p++;
          } while (p != end && *p < 0x80);
        }
        continue;
      }
      // The sequences that lie complete inside the input. Branching on the
      // length (rather than computing it) lets the processor run ahead to the
      // next character while this one is still being assembled, and text tends
      // to run in one script, so each form loops over its own run.
      const std::ptrdiff_t left = end - p;
      if (lead < 0xE0) {
        if (lead >= 0xC0 && left >= 2) {
          do {
            *d++ = (std::uint32_t(p[0]) << 6) + p[1] - SequenceOffset[1];
            p += 2;
          } while (end - p >= 2 && (p[0] & 0xE0) == 0xC0);
          continue;
        }
      } else if (lead < 0xF0) {
        if (left >= 3) {
          do {
            *d++ = (std::uint32_t(p[0]) << 12) + (std::uint32_t(p[1]) << 6) + p[2] - SequenceOffset[2];
            p += 3;
          } while (end - p >= 3 && (p[0] & 0xF0) == 0xE0);
          continue;
        }
      } else if (lead < 0xF8) {
        if (left >= 4) {
          do {
            *d++ = (std::uint32_t(p[0]) << 18) + (std::uint32_t(p[1]) << 12) + (std::uint32_t(p[2]) << 6) + p[3] -
                   SequenceOffset[3];
            p += 4;
          } while (end - p >= 4 && (p[0] & 0xF8) == 0xF0);
          continue;
        }
      }
      // A stray continuation byte, an unsupported first byte, or a sequence
      // cut off by the end of the input (read as the window's zero padding).
      const unsigned int count = LeadTable.count[lead];
      if (count >= 4) unsupportedLength(done, d - dst, count);
      if (count >= static_cast<std::size_t>(left)) endOfData(done, d - dst, static_cast<unsigned int>(left));
      *d++ = lead;  // count is 0 here: a complete sequence was taken above
      ++p;
    }
  }
  if (p != src + n) endOfData(done, d - dst, 0);
  done = static_cast<unsigned int>(d - dst);
  return done;
}

// Characters are encoded a chunk at a time, while the chunk is in the cache.
const unsigned int ChunkChars = 4096;
const unsigned int PortableChunkChars = 1024;

// The bytes that `n` characters need. Branch-free, so that the compiler can
// use vector instructions.
unsigned int countBytes(const std::uint32_t* src, unsigned int n) {
  unsigned int total = 0;
  for (unsigned int i = 0; i < n; ++i) total += encodedLength(src[i]);
  return total;
}

// Encodes the characters from `p` to `end` into `dst`, which has the room
// they need, and returns the position behind them.
unsigned char* encodeChars(const std::uint32_t* p, const std::uint32_t* end, unsigned char* dst) {
  // Blocks of eight characters: plain ASCII ones are narrowed at once, the
  // others character by character.
  while (end - p >= 8) {
    std::uint32_t any = 0;
    for (unsigned int j = 0; j < 8; ++j) any |= p[j];
    if (any < 0x80u) {
      for (unsigned int j = 0; j < 8; ++j) dst[j] = static_cast<unsigned char>(p[j]);
      dst += 8;
    } else {
      for (unsigned int j = 0; j < 8; ++j) dst = writeChar(p[j], dst);
    }
    p += 8;
  }
  while (p != end) dst = writeChar(*p++, dst);
  return dst;
}

#ifdef QEL_UTF8_BLOCKS

// For four characters of one to four bytes each (two bits per character:
// the length less one, first character lowest), the shuffle that gathers
// their sequences, first byte first, from the 32-bit lanes in which the
// sequences stand last byte first; and the number of bytes.
struct cGatherTable {
  unsigned char shuffle[256][16];
  unsigned char length[256];
  constexpr cGatherTable() : shuffle{}, length{} {
    for (unsigned int index = 0; index < 256; ++index) {
      unsigned int n = 0;
      for (unsigned int lane = 0; lane < 4; ++lane) {
        const unsigned int len = ((index >> (2 * lane)) & 3u) + 1;
        for (unsigned int k = len; k-- > 0;) shuffle[index][n++] = static_cast<unsigned char>(4 * lane + k);
      }
      length[index] = static_cast<unsigned char>(n);
      for (unsigned int i = n; i < 16; ++i) shuffle[index][i] = 0x80;
    }
  }
};
constexpr cGatherTable GatherTable;

__attribute__((target("avx2"))) unsigned int countBytesAvx2(const std::uint32_t* src, unsigned int n) {
  // As encodedLength: the thresholds compared after dropping six bits.
  const __m256i t1 = _mm256_set1_epi32(1), t2 = _mm256_set1_epi32(31), t3 = _mm256_set1_epi32(1023),
                t4 = _mm256_set1_epi32(3124);
  __m256i extra = _mm256_setzero_si256();
  unsigned int i = 0;
  for (; n - i >= 8; i += 8) {
    const __m256i t = _mm256_srli_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + i)), 6);
    extra = _mm256_sub_epi32(extra, _mm256_add_epi32(_mm256_add_epi32(_mm256_cmpgt_epi32(t, t1), _mm256_cmpgt_epi32(t, t2)),
                                                     _mm256_add_epi32(_mm256_cmpgt_epi32(t, t3), _mm256_cmpgt_epi32(t, t4))));
  }
  const __m128i sum4 = _mm_add_epi32(_mm256_castsi256_si128(extra), _mm256_extracti128_si256(extra, 1));
  const __m128i sum2 = _mm_add_epi32(sum4, _mm_shuffle_epi32(sum4, 0x4E));
  const __m128i sum1 = _mm_add_epi32(sum2, _mm_shuffle_epi32(sum2, 0xB1));
  return i + static_cast<unsigned int>(_mm_cvtsi128_si32(sum1)) + countBytes(src + i, n - i);
}

// As encodeChars, eight characters at a time (thirty-two while they are
// ASCII). Each character below 200000 is put into its 32-bit lane as its
// sequence, last byte lowest: the six-bit groups of the character in the
// low bytes, with the marker bits of its length (0x80 for a continuation
// byte, 0xC0, 0xE0 or 0xF0 for the first byte) over them. A shuffle per four
// characters then gathers the sequences in order. Blocks with longer
// characters go byte by byte.
__attribute__((target("avx2"))) unsigned char* encodeCharsAvx2(const std::uint32_t* p, const std::uint32_t* end,
                                                                unsigned char* dst, const unsigned char* limit) {
  const __m256i notAscii = _mm256_set1_epi32(~0x7F);
  const __m256i max2 = _mm256_set1_epi32(0x7F), max3 = _mm256_set1_epi32(0x7FF), max4 = _mm256_set1_epi32(0xFFFF);
  const __m256i last5 = _mm256_set1_epi32(199999);
  const __m256i group0 = _mm256_set1_epi32(0x3F), group1 = _mm256_set1_epi32(0x3F00),
                group2 = _mm256_set1_epi32(0x3F0000);
  const __m256i marker2 = _mm256_set1_epi32(0xC080), marker3 = _mm256_set1_epi32(0xC080 ^ 0xE08080),
                marker4 = _mm256_set1_epi32(static_cast<int>(0xE08080u ^ 0xF0808080u));
  const __m256i laneShift = _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6);
  const __m256i narrowOrder = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
  const __m256i zero = _mm256_setzero_si256();
  while (end - p >= 8 && limit - dst >= 32) {
    const __m256i c = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    if (_mm256_testz_si256(c, notAscii)) {
      if (end - p >= 32) {
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 8));
        const __m256i d = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 16));
        const __m256i e = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 24));
        if (_mm256_testz_si256(_mm256_or_si256(b, _mm256_or_si256(d, e)), notAscii)) {
          // Packing works within each half; the last permutation puts the
          // four-byte groups back in order.
          const __m256i bytes =
              _mm256_packus_epi16(_mm256_packus_epi32(c, b), _mm256_packus_epi32(d, e));
          _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), _mm256_permutevar8x32_epi32(bytes, narrowOrder));
          p += 32;
          dst += 32;
          continue;
        }
      }
      const __m256i words = _mm256_packus_epi32(c, c);
      const __m256i bytes = _mm256_permutevar8x32_epi32(_mm256_packus_epi16(words, words), narrowOrder);
      _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), _mm256_castsi256_si128(bytes));
      p += 8;
      dst += 8;
      continue;
    }
    // Five-byte characters (compared unsigned) go one by one.
    if (_mm256_movemask_epi8(_mm256_cmpeq_epi32(_mm256_max_epu32(c, last5), last5)) != -1) {
      for (unsigned int j = 0; j < 8; ++j) dst = writeChar(p[j], dst);
      p += 8;
      continue;
    }
    const __m256i m2 = _mm256_cmpgt_epi32(c, max2), m3 = _mm256_cmpgt_epi32(c, max3), m4 = _mm256_cmpgt_epi32(c, max4);
    const __m256i groups =
        _mm256_or_si256(_mm256_or_si256(_mm256_and_si256(c, group0), _mm256_and_si256(_mm256_slli_epi32(c, 2), group1)),
                        _mm256_and_si256(_mm256_slli_epi32(c, 4), group2));
    const __m256i marker = _mm256_xor_si256(_mm256_xor_si256(_mm256_and_si256(m2, marker2), _mm256_and_si256(m3, marker3)),
                                            _mm256_and_si256(m4, marker4));
    const __m256i sequences = _mm256_blendv_epi8(c, _mm256_or_si256(groups, marker), m2);
    // Two bits per character: its length less one.
    const __m256i lengths = _mm256_sub_epi32(_mm256_sub_epi32(_mm256_sub_epi32(zero, m2), m3), m4);
    __m256i index = _mm256_sllv_epi32(lengths, laneShift);
    index = _mm256_or_si256(index, _mm256_shuffle_epi32(index, 0x4E));
    index = _mm256_or_si256(index, _mm256_shuffle_epi32(index, 0xB1));
    const unsigned int low = static_cast<unsigned int>(_mm256_cvtsi256_si32(index));
    const unsigned int high = static_cast<unsigned int>(_mm256_extract_epi32(index, 4));
    const __m256i gather = _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(GatherTable.shuffle[low]))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(GatherTable.shuffle[high])), 1);
    const __m256i out = _mm256_shuffle_epi8(sequences, gather);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), _mm256_castsi256_si128(out));
    dst += GatherTable.length[low];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), _mm256_extracti128_si256(out, 1));
    dst += GatherTable.length[high];
    p += 8;
  }
  return encodeChars(p, end, dst);
}

#endif

}  // namespace

const cAbstractEnDec& cEnDecUTF8::defaultEnDec() {
  static const cEnDecUTF8 endec;
  return endec;
}

qstd::cAsciiString cEnDecUTF8::name() const { return qstd::cAsciiString("Endec-UTF8"); }

void cEnDecUTF8::encodeChar(unsigned int c, qstd::tArray<char>& out) {
  if (c < 0x80u) {
    out.append(static_cast<char>(c));
    return;
  }
  unsigned char buf[5];
  const unsigned int len = encodedLength(c);
  writeSequence(c, len, buf);
  out.append(reinterpret_cast<const char*>(buf), len);
}

void cEnDecUTF8::encode(const cString& text, qstd::tArray<char>& out) const {
  const unsigned int n = text.size();
  if (n == 0) return;
  const std::uint32_t* src = text.data();
  if (n > 0xFFFFFFFFu - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");

  // Room for one byte a character up front (exactly the size for ASCII text),
  // so that the output grows at most a few times.
  const unsigned int base = out.size();
  if (out._poolSize() - base < n) {
    const bool fit = out.fitOnErase();
    out.setFitOnErase(false);
    out.appendElements(n);
    out.truncate(base);
    out.setFitOnErase(fit);
  }

#ifdef QEL_UTF8_BLOCKS
  // With vector units a chunk is measured first and written into its place.
  if (qstd::cCpuFeatures::avx2()) {
    for (unsigned int at = 0; at < n; at += ChunkChars) {
      const unsigned int count = n - at < ChunkChars ? n - at : ChunkChars;
      const std::uint32_t* chunk = src + at;
      const unsigned int len = countBytesAvx2(chunk, count);
      if (len > 0xFFFFFFFFu - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
      const unsigned int room = out.appendElements(len);
      unsigned char* dst = reinterpret_cast<unsigned char*>(out.data() + room);
      encodeCharsAvx2(chunk, chunk + count, dst, dst + len);
    }
    return;
  }
#endif
  // Without, measuring costs as much as writing: a chunk at a time into a
  // buffer that stays in the cache, then appended.
  unsigned char buf[PortableChunkChars * 5];
  for (unsigned int at = 0; at < n; at += PortableChunkChars) {
    const unsigned int count = n - at < PortableChunkChars ? n - at : PortableChunkChars;
    const unsigned int len =
        static_cast<unsigned int>(encodeChars(src + at, src + at + count, buf) - buf);
    if (len > 0xFFFFFFFFu - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
    out.append(reinterpret_cast<const char*>(buf), len);
  }
}

unsigned int cEnDecUTF8::encode(const unsigned int* chars, unsigned int count, char* buffer, unsigned int size) {
  QEL_ASSERT(chars != 0 || count == 0, "ucs/cendecutf8");
  unsigned long long total = 0;
#ifdef QEL_UTF8_BLOCKS
  const bool vector = qstd::cCpuFeatures::avx2();
#endif
  for (unsigned int at = 0; at < count; at += ChunkChars) {
    const unsigned int n = count - at < ChunkChars ? count - at : ChunkChars;
#ifdef QEL_UTF8_BLOCKS
    total += vector ? countBytesAvx2(chars + at, n) : countBytes(chars + at, n);
#else
    total += countBytes(chars + at, n);
#endif
  }
  if (total > 0xFFFFFFFFull) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
  if (total > size || total == 0) return static_cast<unsigned int>(total);
  unsigned char* dst = reinterpret_cast<unsigned char*>(buffer);
#ifdef QEL_UTF8_BLOCKS
  if (vector) {
    encodeCharsAvx2(chars, chars + count, dst, dst + total);
    return static_cast<unsigned int>(total);
  }
#endif
  encodeChars(chars, chars + count, dst);
  return static_cast<unsigned int>(total);
}

void cEnDecUTF8::decode(const qstd::tConstArrayRef<char>& bytes, cString& out) const {
  const unsigned int n = bytes.size();
  if (n == 0) return;
  const unsigned char* src = reinterpret_cast<const unsigned char*>(bytes.data());
  // At most one character per byte; what is not used is cut off again.
  const unsigned int base = out.appendElements(n);
  unsigned int done = 0;
  try {
    decodeBytes(src, n, out.data() + base, done);
  } catch (...) {
    // Keep what was decoded before the error.
    out.truncate(base + done);
    throw;
  }
  out.truncate(base + done);
}

}  // namespace qucs
