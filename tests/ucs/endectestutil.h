// Byte and character helpers shared by the encoder tests.
#ifndef QELCORE_TESTS_UCS_ENDECTESTUTIL_H
#define QELCORE_TESTS_UCS_ENDECTESTUTIL_H

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/ccpufeatures.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace endectest {

using qstd::cAbstractException;
using qstd::tArray;
using qucs::cEnDecUTF16;
using qucs::cEnDecUTF8;
using qucs::cString;

typedef tArray<char> tBytes;

inline tBytes bytes(std::initializer_list<unsigned int> list) {
  tBytes b;
  for (unsigned int v : list) b.append(static_cast<char>(v));
  return b;
}

inline std::vector<unsigned int> units(const tBytes& b) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < b.size(); ++i) v.push_back(static_cast<unsigned char>(b[i]));
  return v;
}

inline std::vector<unsigned int> units(const tArray<unsigned short>& a) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < a.size(); ++i) v.push_back(a[i]);
  return v;
}

inline std::vector<unsigned int> chars(const cString& s) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < s.size(); ++i) v.push_back(s[i]);
  return v;
}

inline cString text(std::initializer_list<unsigned int> list) {
  cString s;
  for (unsigned int c : list) s.append(c);
  return s;
}

inline std::string messageOf(const cAbstractException& e) {
  if (e.liMessage() == nullptr) return "<no message>";
  qstd::cAsciiString s;
  e.liMessage()->untranslated(s);
  return s.c_str();
}

// Runs `f`, which must throw an exception of the library with that kind and text.
template <typename F>
inline void expectFailure(F f, cAbstractException::Type type, const std::string& message) {
  try {
    f();
    ADD_FAILURE() << "no exception, expected: " << message;
  } catch (const cAbstractException& e) {
    EXPECT_EQ(messageOf(e), message);
    EXPECT_EQ(e.type(), type) << message;
  }
}

template <typename F>
inline void expectRuntime(F f, const std::string& message) {
  expectFailure(f, cAbstractException::TypeRuntime, message);
}

inline std::vector<unsigned int> utf8(const cString& s) {
  tBytes out;
  cEnDecUTF8().encode(s, out);
  return units(out);
}

inline cString fromUtf8(const tBytes& b) {
  cString out;
  cEnDecUTF8().decode(b, out);
  return out;
}

inline std::vector<unsigned int> utf16(unsigned int flags, const cString& s) {
  tBytes out;
  cEnDecUTF16(flags).encode(s, out);
  return units(out);
}

inline cString fromUtf16(unsigned int flags, const tBytes& b) {
  cString out;
  cEnDecUTF16(flags).decode(b, out);
  return out;
}

typedef std::vector<unsigned int> V;

// Runs a test once on the vector paths (where the processor has them) and
// once on the portable loops.
class cBothPaths : public ::testing::TestWithParam<bool> {
protected:
  void SetUp() override { qstd::cCpuFeatures::setVectorUnitsEnabled(GetParam()); }
  void TearDown() override { qstd::cCpuFeatures::setVectorUnitsEnabled(true); }
};

inline std::string pathName(const ::testing::TestParamInfo<bool>& info) {
  return info.param ? "Vector" : "Portable";
}

inline unsigned int nextRandom(unsigned int& seed) {
  seed = seed * 1103515245u + 12345u;
  return seed >> 8;
}

// Text as it is written: words of one script at a time (ASCII, accented
// Latin, Cyrillic, CJK, characters beyond the basic plane), now and then one
// of the characters at the edges of the encodings, or, with `wild`, any
// 32-bit value at all.
inline cString randomText(unsigned int& seed, unsigned int n, bool wild = false) {
  static const unsigned int edges[] = {0,       0x7F,    0x80,    0x7FF,    0x800,     0xFFFF,     0x10000,
                                       0x30D3F, 0x30D40, 0xD7FF,  0xE000,   0x10FFFF,  0x110000,   0x7FFFFFFF,
                                       0x80000000, 0xFFFFFFFF, 0xD800, 0xDFFF};
  static const unsigned int bases[] = {0x20, 0xC0, 0x400, 0x4E00, 0x1F600};
  static const unsigned int spans[] = {0x5F, 0x40, 0x100, 0x5000, 0x10000};
  cString s;
  unsigned int script = 0, left = 0;
  for (unsigned int i = 0; i < n; ++i) {
    const unsigned int r = nextRandom(seed);
    if (left == 0) {
      script = r % 5;
      left = 1 + r % 12;
    }
    --left;
    unsigned int c = bases[script] + (r >> 4) % spans[script];
    if (r % 37 == 0) c = edges[(r >> 8) % (wild ? 18 : 12)];
    if (wild && r % 53 == 0) c = (nextRandom(seed) << 8) ^ nextRandom(seed);
    s.append(c);
  }
  return s;
}

// The UTF-8 form of the library's rule: the length from the thresholds
// (200000 decimal for five bytes), continuation bytes filled from the end.
inline std::vector<unsigned int> referenceUtf8(const cString& s) {
  static const unsigned int marks[6] = {0, 0, 0xC0, 0xE0, 0xF0, 0xF8};
  std::vector<unsigned int> out;
  for (unsigned int i = 0; i < s.size(); ++i) {
    unsigned int c = s[i];
    if (c < 0x80) {
      out.push_back(c);
      continue;
    }
    const unsigned int len = c < 0x800 ? 2 : c < 0x10000 ? 3 : c < 200000 ? 4 : 5;
    unsigned int b[5];
    for (unsigned int k = len - 1; k > 0; --k) {
      b[k] = 0x80 | (c & 0x3F);
      c >>= 6;
    }
    b[0] = (c | marks[len]) & 0xFF;
    out.insert(out.end(), b, b + len);
  }
  return out;
}

// The UTF-16 form as bytes (mark first when asked for), or an empty list
// with `unmappable` set.
inline std::vector<unsigned int> referenceUtf16(const cString& s, bool mark, bool bigEndian, bool& unmappable) {
  std::vector<unsigned int> out;
  unmappable = false;
  auto put = [&](unsigned int u) {
    out.push_back(bigEndian ? u >> 8 : u & 0xFF);
    out.push_back(bigEndian ? u & 0xFF : u >> 8);
  };
  if (mark) put(0xFEFF);
  for (unsigned int i = 0; i < s.size(); ++i) {
    const unsigned int c = s[i];
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
      unmappable = true;
      return {};
    }
    if (c > 0xFFFF) {
      put(((c - 0x10000) >> 10) | 0xD800);
      put(((c - 0x10000) & 0x3FF) | 0xDC00);
    } else {
      put(c);
    }
  }
  return out;
}

}  // namespace endectest

#endif
