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
  for (unsigned int i = 0; i < n; ++i) {
    const std::uint32_t c = src[i];
    if (c >= 0xD800u) {
      if (c > 0x10FFFFu || c <= 0xDFFFu) cUCSExceptions::throwUTF16Unmappable();
      if (c > 0xFFFFu) ++units;
    }
  }
  return units;
}

// Writes the units of a checked text through `put(unit)`.
template <typename Put>
inline void forEachUnit(const std::uint32_t* src, unsigned int n, Put put) {
  for (unsigned int i = 0; i < n; ++i) {
    const std::uint32_t c = src[i];
    if (c > 0xFFFFu) {
      put(((c - 0x10000u) >> 10) | 0xD800u);
      put(((c - 0x10000u) & 0x3FFu) | 0xDC00u);
    } else {
      put(c);
    }
  }
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
  const unsigned long long total = countUnits(src, n) + (mark ? 1 : 0);
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (total == 0) return;
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned short* dst = out.data() + base;
  if (mark) *dst++ = swapped ? 0xFFFEu : 0xFEFFu;
  if (swapped) {
    forEachUnit(src, n, [&dst](std::uint32_t u) { *dst++ = swapUnit(u); });
  } else {
    forEachUnit(src, n, [&dst](std::uint32_t u) { *dst++ = static_cast<unsigned short>(u); });
  }
}

void cEnDecUTF16::encode(const cString& text, qstd::tArray<char>& out) const {
  const unsigned int n = text.size();
  const std::uint32_t* src = text.data(true);
  const bool mark = (miFlags & FlagByteOrderMark) != 0;
  const bool bigEndian = (miFlags & FlagBigEndian) != 0;
  const unsigned long long total = 2 * (countUnits(src, n) + (mark ? 1 : 0));
  if (total > 0xFFFFFFFFull - out.size()) qstd::cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "encode");
  if (total == 0) return;
  const unsigned int base = out.appendElements(static_cast<unsigned int>(total));
  unsigned char* dst = reinterpret_cast<unsigned char*>(out.data()) + base;
  if (bigEndian) {
    auto put = [&dst](std::uint32_t u) {
      dst[0] = static_cast<unsigned char>(u >> 8);
      dst[1] = static_cast<unsigned char>(u);
      dst += 2;
    };
    if (mark) put(0xFEFFu);
    forEachUnit(src, n, put);
  } else {
    auto put = [&dst](std::uint32_t u) {
      dst[0] = static_cast<unsigned char>(u);
      dst[1] = static_cast<unsigned char>(u >> 8);
      dst += 2;
    };
    if (mark) put(0xFEFFu);
    forEachUnit(src, n, put);
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
