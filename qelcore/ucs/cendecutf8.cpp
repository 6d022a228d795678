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
      count[b] = static_cast<unsigned char>(b < 0xC0 ? 0 : b < 0xE0 ? 1 : b < 0xF0 ? 2 : b < 0xF8 ? 3 : b < 0xFC ? 4
                                                     : b < 0xFE ? 5 : b == 0xFE ? 6 : 7);
  }
};
constexpr cLeadTable LeadTable;

inline std::uint64_t load64(const unsigned char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, sizeof w);
  return w;
}

// True when none of the eight bytes is zero or has its high bit set: then
// every byte is a character of its own.
inline bool plainAscii8(std::uint64_t w) {
  const std::uint64_t ones = 0x0101010101010101ull, highs = 0x8080808080808080ull;
  // A byte of 0 borrows and sets its high bit in w - ones; the lowest such
  // byte cannot receive a borrow from below, so the test is exact.
  return ((w | (w - ones)) & highs) == 0;
}

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
unsigned int decodeBytes(const unsigned char* src, unsigned int n, std::uint32_t* dst, unsigned int& done) {
  const unsigned char* p = src;
  const unsigned char* const end = src + n;
  std::uint32_t* d = dst;
  while (p != end) {
    const unsigned char lead = *p;
    if (lead - 1u < 0x7Fu) {
      // Plain ASCII: whole blocks of sixteen or eight bytes where possible,
      // else byte by byte up to the next byte that is not plain ASCII.
      if (end - p >= 16 && plainAscii8(load64(p)) && plainAscii8(load64(p + 8))) {
        do {
          for (unsigned int j = 0; j < 16; ++j) d[j] = p[j];
          p += 16;
          d += 16;
        } while (end - p >= 16 && plainAscii8(load64(p)) && plainAscii8(load64(p + 8)));
      } else if (end - p >= 8 && plainAscii8(load64(p))) {
        for (unsigned int j = 0; j < 8; ++j) d[j] = p[j];
        p += 8;
        d += 8;
      } else {
        do {
          *d++ = *p++;
        } while (p != end && *p - 1u < 0x7Fu);
      }
      continue;
    }
    // The common sequences, complete inside the input. Branching on the
    // length (rather than computing it) lets the processor run ahead to the
    // next character while this one is still being assembled.
    const std::ptrdiff_t left = end - p;
    if (lead >= 0xC0 && lead < 0xE0 && left >= 2) {
      if (p[1] == 0) endOfData(done, d - dst, 1);
      *d++ = (std::uint32_t(lead) << 6) + p[1] - SequenceOffset[1];
      p += 2;
      continue;
    }
    if (lead >= 0xE0 && lead < 0xF0 && left >= 3) {
      if (p[1] == 0) endOfData(done, d - dst, 1);
      if (p[2] == 0) endOfData(done, d - dst, 2);
      *d++ = (std::uint32_t(lead) << 12) + (std::uint32_t(p[1]) << 6) + p[2] - SequenceOffset[2];
      p += 3;
      continue;
    }
    if (lead >= 0xF0 && lead < 0xF8 && left >= 4) {
      if (p[1] == 0) endOfData(done, d - dst, 1);
      if (p[2] == 0) endOfData(done, d - dst, 2);
      if (p[3] == 0) endOfData(done, d - dst, 3);
      *d++ = (std::uint32_t(lead) << 18) + (std::uint32_t(p[1]) << 12) + (std::uint32_t(p[2]) << 6) + p[3] -
             SequenceOffset[3];
      p += 4;
      continue;
    }
    // Everything else one byte at a time through the zero-padded window: a
    // NUL, a stray continuation byte, an unsupported lead byte, or a sequence
    // cut off by the end of the input.
    if (lead == 0) endOfData(done, d - dst, 0);
    const unsigned int count = LeadTable.count[lead];
    if (count >= 4) unsupportedLength(done, d - dst, count);
    std::uint32_t value = lead;
    for (unsigned int j = 1; j <= count; ++j) {
      const unsigned char b = j < static_cast<std::size_t>(left) ? p[j] : 0;
      if (b == 0) endOfData(done, d - dst, j);
      value = (value << 6) + b;
    }
    *d++ = value - SequenceOffset[count];
    p += 1 + count;
  }
  done = static_cast<unsigned int>(d - dst);
  return done;
}

// Bytes needed for `n` characters; `ascii` tells whether all are below 0x80.
unsigned long long encodedSize(const std::uint32_t* src, unsigned int n, bool& ascii) {
  unsigned long long extra = 0;
  // encodedLength() - 1 summed in 32 bits over blocks: the loop vectorizes
  // and the block sums cannot overflow.
  for (unsigned int at = 0; at < n;) {
    const unsigned int end = n - at > 65536 ? at + 65536 : n;
    unsigned int sum = 0;
    for (const std::uint32_t *p = src + at, *e = src + end; p != e; ++p) {
      const std::int32_t t = static_cast<std::int32_t>(*p >> 6);
      sum += static_cast<unsigned int>(t > 1) + static_cast<unsigned int>(t > 31) +
             static_cast<unsigned int>(t > 1023) + static_cast<unsigned int>(t > 3124);
    }
    extra += sum;
    at = end;
  }
  ascii = extra == 0;
  return n + extra;
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

  // Size the output exactly first, so that it grows once.
  bool ascii = false;
  const unsigned long long total = encodedSize(src, n, ascii);
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned char* dst = reinterpret_cast<unsigned char*>(out.data()) + base;
  unsigned char* const dstEnd = dst + total;

  if (ascii) {
    for (std::size_t i = 0; i < n; ++i) dst[i] = static_cast<unsigned char>(src[i]);
    return;
  }
  // Blocks of eight characters: plain ASCII ones are narrowed at once, the
  // others character by character.
  const std::uint32_t* p = src;
  const std::uint32_t* const end = src + n;
  while (end - p >= 8) {
    std::uint32_t any = 0;
    for (unsigned int j = 0; j < 8; ++j) any |= p[j];
    if (any < 0x80u) {
      for (unsigned int j = 0; j < 8; ++j) dst[j] = static_cast<unsigned char>(p[j]);
      dst += 8;
      p += 8;
      continue;
    }
    if (dstEnd - dst >= 8 * 5) {
      for (unsigned int j = 0; j < 8; ++j)
        dst = p[j] < 200000u ? writeCharNoBranch(p[j], dst) : writeChar(p[j], dst);
    } else {
      for (unsigned int j = 0; j < 8; ++j) dst = writeChar(p[j], dst);
    }
    p += 8;
  }
  while (p != end) dst = writeChar(*p++, dst);
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
