#include "qelcore/ucs/cendecutf16.h"

#include <cstdint>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

namespace qucs {

namespace {

inline std::uint16_t swapUnit(std::uint32_t u) { return static_cast<std::uint16_t>(((u & 0xFFu) << 8) | (u >> 8)); }

inline bool isSurrogate(std::uint32_t c) { return c >= 0xD800u && c <= 0xDFFFu; }

// Checks every character and returns the number of units the text needs.
// Nothing is written before the whole text is known to be encodable.
unsigned long long countUnits(const std::uint32_t* src, unsigned int n) {
  unsigned long long units = n;
  std::uint32_t bad = 0;
  // Branch-free 32-bit sums over blocks keep the loop vectorizable.
  for (unsigned int at = 0; at < n;) {
    const unsigned int end = n - at > 65536 ? at + 65536 : n;
    unsigned int pairs = 0;
    for (const std::uint32_t *p = src + at, *e = src + end; p != e; ++p) {
      const std::uint32_t c = *p;
      bad |= static_cast<std::uint32_t>(c > 0x10FFFFu) | static_cast<std::uint32_t>(c - 0xD800u < 0x800u);
      pairs += c > 0xFFFFu;
    }
    units += pairs;
    at = end;
  }
  if (bad != 0) cUCSExceptions::throwUTF16Unmappable();
  return units;
}

// Writes the units of a checked text through `put(unit)`; `direct(i, count)`
// writes a block of characters that are all single units.
template <typename Put, typename Direct>
inline void forEachUnit(const std::uint32_t* src, unsigned int n, Put put, Direct direct) {
  auto one = [&put](std::uint32_t c) {
    if (c > 0xFFFFu) {
      put(((c - 0x10000u) >> 10) | 0xD800u);
      put(((c - 0x10000u) & 0x3FFu) | 0xDC00u);
    } else {
      put(c);
    }
  };
  // Blocks of eight characters: those without a pair go at once, the others
  // character by character.
  unsigned int i = 0;
  for (; n - i >= 8; i += 8) {
    std::uint32_t high = 0;
    for (unsigned int j = 0; j < 8; ++j) high |= src[i + j] & 0xFFFF0000u;
    if (high == 0) {
      direct(i, 8u);
    } else {
      for (unsigned int j = 0; j < 8; ++j) one(src[i + j]);
    }
  }
  for (; i < n; ++i) one(src[i]);
}

// Reads zero-terminated or counted units (through `unit(i)`, already in the
// right order) and appends the characters. `more(i)` tells whether the loop
// goes on at unit i, `has(i)` whether unit i exists as the second half of a pair.
template <typename Unit, typename More, typename Has>
void decodeUnits(Unit unit, More more, Has has, unsigned int start, cString& out) {
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
  const unsigned int n = text.size();
  const std::uint32_t* src = text.data(true);
  const bool mark = (miFlags & FlagByteOrderMark) != 0;
  const bool swapped = (miFlags & FlagBigEndian) != 0;
  const unsigned long long units = countUnits(src, n);
  const unsigned long long total = units + (mark ? 1 : 0);
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (total == 0) return;
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned short* dst = out.data() + base;
  if (mark) *dst++ = swapped ? 0xFFFEu : 0xFEFFu;
  if (swapped) {
    forEachUnit(
        src, n, [&dst](std::uint32_t u) { *dst++ = swapUnit(u); },
        [&dst, src](unsigned int at, unsigned int count) {
          for (unsigned int j = 0; j < count; ++j) dst[j] = swapUnit(src[at + j]);
          dst += count;
        });
  } else {
    forEachUnit(
        src, n, [&dst](std::uint32_t u) { *dst++ = static_cast<unsigned short>(u); },
        [&dst, src](unsigned int at, unsigned int count) {
          for (unsigned int j = 0; j < count; ++j) dst[j] = static_cast<unsigned short>(src[at + j]);
          dst += count;
        });
  }
}

// Two bytes per unit in the given order.
template <bool BigEndian>
void writeBytes(const std::uint32_t* src, unsigned int n, bool mark, unsigned char* dst) {
  auto put = [&dst](std::uint32_t u) {
    dst[BigEndian ? 1 : 0] = static_cast<unsigned char>(u);
    dst[BigEndian ? 0 : 1] = static_cast<unsigned char>(u >> 8);
    dst += 2;
  };
  if (mark) put(0xFEFFu);
  forEachUnit(src, n, put, [&dst, src](unsigned int at, unsigned int count) {
    for (unsigned int j = 0; j < count; ++j) {
      dst[2 * j + (BigEndian ? 1 : 0)] = static_cast<unsigned char>(src[at + j]);
      dst[2 * j + (BigEndian ? 0 : 1)] = static_cast<unsigned char>(src[at + j] >> 8);
    }
    dst += 2 * count;
  });
}

void cEnDecUTF16::encode(const cString& text, qstd::tArray<char>& out) const {
  const unsigned int n = text.size();
  const std::uint32_t* src = text.data(true);
  const bool mark = (miFlags & FlagByteOrderMark) != 0;
  const unsigned long long total = 2 * (countUnits(src, n) + (mark ? 1 : 0));
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (total == 0) return;
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned char* dst = reinterpret_cast<unsigned char*>(out.data()) + base;
  if ((miFlags & FlagBigEndian) != 0) {
    writeBytes<true>(src, n, mark, dst);
  } else {
    writeBytes<false>(src, n, mark, dst);
  }
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
    decodeUnits([src](unsigned int i) { return (std::uint32_t(src[2 * i]) << 8) | src[2 * i + 1]; }, more, has,
                start / 2, out);
  } else {
    decodeUnits([src](unsigned int i) { return std::uint32_t(src[2 * i]) | (std::uint32_t(src[2 * i + 1]) << 8); },
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
    decodeUnits([units](unsigned int i) { return std::uint32_t(swapUnit(units[i])); }, has, has, start, out);
  } else {
    decodeUnits([units](unsigned int i) { return std::uint32_t(units[i]); }, has, has, start, out);
  }
}

}  // namespace qucs
