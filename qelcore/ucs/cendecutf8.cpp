#include "qelcore/ucs/cendecutf8.h"

#include <cstdint>
#include <cstring>

#include "qelcore/std/cstdexceptions.h"
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
  // The 200000 is decimal on purpose: see the class comment.
  return 1u + (c >= 0x80u) + (c >= 0x800u) + (c >= 0x10000u) + (c >= 200000u);
}

// Writes the sequence of `c` (length `len` > 1) to `dst`.
inline void writeSequence(std::uint32_t c, unsigned int len, unsigned char* dst) {
  for (unsigned int i = len - 1; i > 0; --i) {
    dst[i] = static_cast<unsigned char>(0x80u | (c & 0x3Fu));
    c >>= 6;
  }
  dst[0] = static_cast<unsigned char>(c | LeadMark[len]);
}

// Continuation bytes announced by a byte that is not ASCII.
inline unsigned int continuationCount(unsigned char lead) {
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 1;
  if (lead < 0xF0) return 2;
  if (lead < 0xF8) return 3;
  if (lead < 0xFC) return 4;
  if (lead < 0xFE) return 5;
  return lead == 0xFE ? 6u : 7u;
}

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

// Decodes `n` bytes into `dst` (room for `n` characters). Returns the number
// of characters written; on an error stores that count in `done` and throws.
unsigned int decodeBytes(const unsigned char* src, unsigned int n, std::uint32_t* dst, unsigned int& done) {
  unsigned int i = 0, k = 0;
  while (i < n) {
    // Runs of plain ASCII, sixteen and then eight bytes at a time.
    while (n - i >= 16) {
      const std::uint64_t a = load64(src + i), b = load64(src + i + 8);
      if (!plainAscii8(a) || !plainAscii8(b)) break;
      for (unsigned int j = 0; j < 16; ++j) dst[k + j] = src[i + j];
      i += 16;
      k += 16;
    }
    if (n - i >= 8 && plainAscii8(load64(src + i))) {
      for (unsigned int j = 0; j < 8; ++j) dst[k + j] = src[i + j];
      i += 8;
      k += 8;
      continue;
    }
    if (i >= n) break;

    // One character through the zero-padded window: bytes past the input
    // read as zero and so end the data.
    const unsigned int remaining = n - i;
    const unsigned char lead = src[i];
    if (lead == 0) {
      done = k;
      cUCSExceptions::throwUTF8UnexpectedEnd(0);
    }
    if (lead < 0x80) {
      dst[k++] = lead;
      ++i;
      continue;
    }
    const unsigned int count = continuationCount(lead);
    if (count >= 4) {
      done = k;
      cUCSExceptions::throwUTF8UnsupportedLength(count);
    }
    std::uint32_t value = lead;
    for (unsigned int j = 1; j <= count; ++j) {
      const unsigned char b = j < remaining ? src[i + j] : 0;
      if (b == 0) {
        done = k;
        cUCSExceptions::throwUTF8UnexpectedEnd(j);
      }
      value = (value << 6) + b;
    }
    dst[k++] = value - SequenceOffset[count];
    i += 1 + count;
  }
  return k;
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
  unsigned long long total = 0;
  for (unsigned int i = 0; i < n; ++i) total += encodedLength(src[i]);
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF8", "encode");
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned char* dst = reinterpret_cast<unsigned char*>(out.data()) + base;

  unsigned int i = 0;
  while (i < n) {
    // Runs of ASCII, eight characters at a time.
    while (n - i >= 8) {
      std::uint32_t any = 0;
      for (unsigned int j = 0; j < 8; ++j) any |= src[i + j];
      if (any >= 0x80u) break;
      for (unsigned int j = 0; j < 8; ++j) dst[j] = static_cast<unsigned char>(src[i + j]);
      dst += 8;
      i += 8;
    }
    if (i >= n) break;
    const std::uint32_t c = src[i++];
    if (c < 0x80u) {
      *dst++ = static_cast<unsigned char>(c);
      continue;
    }
    const unsigned int len = encodedLength(c);
    writeSequence(c, len, dst);
    dst += len;
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
    done = decodeBytes(src, n, out.data() + base, done);
  } catch (...) {
    // Keep what was decoded before the error.
    out.truncate(base + done);
    throw;
  }
  out.truncate(base + done);
}

}  // namespace qucs
