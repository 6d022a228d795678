// The UTF-8 decoder takes long inputs in blocks where the processor allows it
// and byte by byte elsewhere. Both must agree exactly with a plain reading of
// the decoder's rules, in characters, error text and partial output, so these
// tests compare it with one on inputs long enough for blocks.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace {

typedef std::vector<unsigned char> tInput;

struct cResult {
  std::vector<unsigned int> chars;
  std::string error;
  bool operator==(const cResult& o) const { return chars == o.chars && error == o.error; }
};

std::ostream& operator<<(std::ostream& os, const cResult& r) {
  os << r.chars.size() << " chars:";
  for (unsigned int c : r.chars) os << ' ' << std::hex << c << std::dec;
  return os << " error: " << (r.error.empty() ? "none" : r.error);
}

// One character at a time through a zero-padded eight-byte window.
cResult reference(const tInput& in) {
  static const unsigned int offsets[4] = {0, 0x3080u, 0xE2080u, 0x3C82080u};
  cResult r;
  for (std::size_t p = 0; p < in.size();) {
    unsigned char w[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    std::memcpy(w, in.data() + p, in.size() - p < 8 ? in.size() - p : 8);
    const unsigned int count = w[0] < 0xC0 ? 0 : w[0] < 0xE0 ? 1 : w[0] < 0xF0 ? 2 : w[0] < 0xF8 ? 3 : 4;
    if (w[0] != 0 && count == 4) {
      const unsigned int length = w[0] < 0xFC ? 4 : w[0] < 0xFE ? 5 : w[0] == 0xFE ? 6 : 7;
      r.error = "UTF8 decode error - unsupported length of " + std::to_string(length) + "!";
      return r;
    }
    unsigned int value = 0;
    for (unsigned int j = 0; j <= count; ++j) {
      if (w[j] == 0) {
        r.error = "UTF8 decode error - unexpected end of data at index " + std::to_string(j) + "!";
        return r;
      }
      value = (value << 6) + w[j];
    }
    r.chars.push_back(value - offsets[count]);
    p += 1 + count;
  }
  return r;
}

cResult decoded(const tInput& in) {
  qstd::tArray<char> bytes;
  if (!in.empty()) bytes.append(reinterpret_cast<const char*>(in.data()), static_cast<unsigned int>(in.size()));
  qucs::cString out;
  out.append(0x263Au);  // decoding appends
  cResult r;
  try {
    qucs::cEnDecUTF8().decode(bytes, out);
  } catch (const qstd::cRuntimeException& e) {
    qstd::cAsciiString text;
    e.liMessage()->untranslated(text);
    r.error = text.c_str();
  }
  EXPECT_EQ(out[0], 0x263Au);
  for (unsigned int i = 1; i < out.size(); ++i) r.chars.push_back(out[i]);
  return r;
}

unsigned int next(unsigned int& seed) {
  seed = seed * 1103515245u + 12345u;
  return seed >> 8;
}

// Valid text of every length, in runs of one script as in real text, with the
// edges of each length among the characters.
tInput text(unsigned int& seed, unsigned int chars) {
  static const unsigned int edges[] = {1, 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x30D3F};
  static const unsigned int bases[] = {0x20, 0xC0, 0x400, 0x4E00, 0x1F600};
  qstd::tArray<char> bytes;
  unsigned int base = 0;
  for (unsigned int i = 0; i < chars; ++i) {
    const unsigned int r = next(seed);
    if (i % 5 == 0) base = bases[r % 5];
    qucs::cEnDecUTF8::encodeChar(r % 11 == 0 ? edges[r % 8] : base + r % 0x5F, bytes);
  }
  const unsigned char* p = reinterpret_cast<const unsigned char*>(bytes.data(true));
  return tInput(p, p + bytes.size());
}

}  // namespace

TEST(EnDecUTF8Blocks, ValidTextAndEveryPrefixOfIt) {
  unsigned int seed = 7;
  for (unsigned int chars = 0; chars < 120; ++chars) {
    const tInput in = text(seed, chars);
    ASSERT_EQ(decoded(in), reference(in)) << chars << " chars";
    ASSERT_TRUE(reference(in).error.empty());
  }
  const tInput in = text(seed, 40);
  for (std::size_t n = 0; n < in.size(); ++n) {
    const tInput cut(in.begin(), in.begin() + static_cast<std::ptrdiff_t>(n));
    ASSERT_EQ(decoded(cut), reference(cut)) << "first " << n << " bytes";
  }
}

TEST(EnDecUTF8Blocks, EveryKindOfByteAtEveryPosition) {
  static const unsigned char probes[] = {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC0, 0xC3, 0xDF,
                                         0xE0, 0xEF, 0xF0, 0xF7, 0xF8, 0xFC, 0xFE, 0xFF};
  unsigned int seed = 11;
  for (unsigned int round = 0; round < 3; ++round) {
    const tInput in = text(seed, 30);
    for (std::size_t i = 0; i < in.size(); ++i)
      for (unsigned char probe : probes) {
        tInput bad = in;
        bad[i] = probe;
        ASSERT_EQ(decoded(bad), reference(bad)) << "byte " << i << " set to " << int(probe);
      }
  }
}

TEST(EnDecUTF8Blocks, RandomBytesAndDamagedText) {
  unsigned int seed = 3;
  for (unsigned int round = 0; round < 4000; ++round) {
    tInput in;
    if (round % 2 == 0) {
      // Mostly lead and continuation bytes, some ASCII, rarely a zero.
      in.resize(next(seed) % 96);
      for (unsigned char& b : in) {
        const unsigned int r = next(seed);
        b = static_cast<unsigned char>(r % 64 == 0 ? 0 : r % 4 == 0 ? 0x20 + r % 0x5F : 0x80 + (r >> 4) % 0x78);
      }
    } else {
      // Text with a byte damaged here and there.
      in = text(seed, next(seed) % 60);
      for (unsigned char& b : in)
        if (next(seed) % 40 == 0) b = static_cast<unsigned char>(next(seed));
    }
    ASSERT_EQ(decoded(in), reference(in)) << "round " << round;
  }
}
