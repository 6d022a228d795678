#include "qelcore/ucs/cendecutf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "qelcore/std/cstdexceptions.h"

#if defined(__GNUC__)
#define QEL_NOINLINE __attribute__((noinline))
#else
#define QEL_NOINLINE
#endif
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

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
  const unsigned int len = encodedLength(c);
  writeSequence(c, len, dst);
  return dst + len;
}

// As writeChar for characters below 200000, with at least four bytes of
// room at `dst`: always stores four bytes (those behind the sequence are
// overwritten later) and chooses the form without a branch, since in mixed
// text the length changes too often for branches to be predicted.
inline unsigned char* writeCharNoBranch(std::uint32_t c, unsigned char* dst) {
  const unsigned int len = 1u + (c >= 0x80u) + (c >= 0x800u) + (c >= 0x10000u);
  const std::uint32_t c0 = 0x80u | (c & 0x3Fu), c1 = 0x80u | ((c >> 6) & 0x3Fu), c2 = 0x80u | ((c >> 12) & 0x3Fu);
  // First byte lowest.
  const std::uint32_t w2 = (0xC0u | (c >> 6)) | (c0 << 8);
  const std::uint32_t w3 = (0xE0u | (c >> 12)) | (c1 << 8) | (c0 << 16);
  const std::uint32_t w4 = (0xF0u | (c >> 18)) | (c2 << 8) | (c1 << 16) | (c0 << 24);
  const std::uint32_t forms[4] = {c, w2, w3, w4};
  const std::uint32_t w = forms[len - 1];
  dst[0] = static_cast<unsigned char>(w);
  dst[1] = static_cast<unsigned char>(w >> 8);
  dst[2] = static_cast<unsigned char>(w >> 16);
  dst[3] = static_cast<unsigned char>(w >> 24);
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
  while (p != end) {
    const unsigned char lead = *p;
    if (lead < 0x80) {
      // ASCII: whole blocks of sixteen or eight bytes where possible, else
      // byte by byte up to the next byte that is not ASCII.
      if (end - p >= 16 && plainAscii(load64(p) | load64(p + 8))) {
        do {
          for (unsigned int j = 0; j < 16; ++j) d[j] = p[j];
          p += 16;
          d += 16;
        } while (end - p >= 16 && plainAscii(load64(p) | load64(p + 8)));
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
  if (p != src + n) endOfData(done, d - dst, 0);
  done = static_cast<unsigned int>(d - dst);
  return done;
}

const unsigned int ChunkChars = 1024;

// Encodes `n` characters (at most ChunkChars) into `dst`, which has room for
// five bytes a character plus eight, and returns the number of bytes.
unsigned int encodeChunk(const std::uint32_t* src, unsigned int n, unsigned char* dst) {
  unsigned char* const start = dst;
  const std::uint32_t* p = src;
  const std::uint32_t* const end = src + n;
  // Blocks of eight characters: plain ASCII ones are narrowed at once, the
  // others character by character.
  while (end - p >= 8) {
    std::uint32_t any = 0;
    for (unsigned int j = 0; j < 8; ++j) any |= p[j];
    if (any < 0x80u) {
      for (unsigned int j = 0; j < 8; ++j) dst[j] = static_cast<unsigned char>(p[j]);
      dst += 8;
    } else {
      for (unsigned int j = 0; j < 8; ++j) dst = p[j] < 200000u ? writeCharNoBranch(p[j], dst) : writeChar(p[j], dst);
    }
    p += 8;
  }
  while (p != end) dst = writeChar(*p++, dst);
  return static_cast<unsigned int>(dst - start);
}

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

  // A chunk at a time into a buffer that stays in the cache, then appended:
  // cheaper than measuring the whole text before writing it.
  unsigned char buf[ChunkChars * 5 + 8];
  for (unsigned int at = 0; at < n; at += ChunkChars) {
    const unsigned int count = n - at < ChunkChars ? n - at : ChunkChars;
    const unsigned int len = encodeChunk(src + at, count, buf);
    if (len > 0xFFFFFFFFu - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
    out.append(reinterpret_cast<const char*>(buf), len);
  }
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
