#include "qelcore/ucs/cendecutf8.h"

#include <cstring>
#include <ostream>

#include <gtest/gtest.h>

#include "qelcore/std/cruntimeexception.h"

#include "endectestutil.h"

using namespace endectest;
using qstd::tConstArrayRef;

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
tInput validText(unsigned int& seed, unsigned int chars) {
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

TEST(cEnDecUTF8, EncodesEveryLengthWithTheLibrarysThresholds) {
  EXPECT_EQ(utf8(text({0x7F})), V({0x7F}));
  EXPECT_EQ(utf8(text({0x80})), V({0xC2, 0x80}));
  EXPECT_EQ(utf8(text({0x7FF})), V({0xDF, 0xBF}));
  EXPECT_EQ(utf8(text({0x800})), V({0xE0, 0xA0, 0x80}));
  EXPECT_EQ(utf8(text({0xFFFF})), V({0xEF, 0xBF, 0xBF}));
  EXPECT_EQ(utf8(text({0x10000})), V({0xF0, 0x90, 0x80, 0x80}));
  EXPECT_EQ(utf8(text({0x30D3F})), V({0xF0, 0xB0, 0xB4, 0xBF}));
  // From decimal 200000 on five bytes, the highest planes included.
  EXPECT_EQ(utf8(text({0x30D40})), V({0xF8, 0x80, 0xB0, 0xB5, 0x80}));
  EXPECT_EQ(utf8(text({0x10FFFF})), V({0xF8, 0x84, 0x8F, 0xBF, 0xBF}));
  EXPECT_EQ(utf8(text({0xFFFFFFFF})), V({0xFF, 0xBF, 0xBF, 0xBF, 0xBF}));
  // A NUL character is written as it is.
  EXPECT_EQ(utf8(text({0x41, 0, 0xE9})), V({0x41, 0x00, 0xC3, 0xA9}));
}

TEST(cEnDecUTF8, EncodingAppendsAndEncodeCharMatchesEncode) {
  tBytes out = bytes({0x21});
  cEnDecUTF8().encode(text({0x41, 0x20AC}), out);
  EXPECT_EQ(units(out), V({0x21, 0x41, 0xE2, 0x82, 0xAC}));

  // Texts long enough for the block-wise paths, with five-byte characters
  // among the others and at the very end of the output.
  const unsigned int sample[] = {0x41u, 0xE9u, 0x20ACu, 0x1F600u, 0x30D40u, 0xFFFFFFFFu, 0x7Fu};
  for (unsigned int len = 1; len < 40; ++len) {
    for (unsigned int shift = 0; shift < 7; ++shift) {
      cString s;
      tBytes expected;
      for (unsigned int i = 0; i < len; ++i) {
        const unsigned int c = sample[(i * 3 + shift) % 7];
        s.append(c);
        cEnDecUTF8::encodeChar(c, expected);
      }
      tBytes got;
      got.setGrowStep(0);  // exactly sized, so that a store past the end is caught
      cEnDecUTF8().encode(s, got);
      ASSERT_EQ(units(got), units(expected)) << len << " " << shift;
    }
  }
  // Seven five-byte characters and a short one fill the last block exactly.
  cString dense;
  tBytes expected;
  for (unsigned int i = 0; i < 16; ++i) {
    const unsigned int c = i % 8 == 7 ? 0x41u : 0x30D40u + i;
    dense.append(c);
    cEnDecUTF8::encodeChar(c, expected);
  }
  tBytes got;
  got.setGrowStep(0);
  cEnDecUTF8().encode(dense, got);
  EXPECT_EQ(units(got), units(expected));
}

TEST(cEnDecUTF8, RoundTripsBelowTheFiveByteThreshold) {
  cString s = text({0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x30D3F, 0xD800, 0x1});
  EXPECT_EQ(chars(fromUtf8(bytes({}))), V());
  tBytes b;
  cEnDecUTF8().encode(s, b);
  EXPECT_EQ(chars(fromUtf8(b)), chars(s));

  // ASCII runs of every length and alignment between longer characters, so
  // that the block-wise paths start and stop everywhere.
  cString mixed;
  unsigned int seed = 12345;
  for (unsigned int i = 0; i < 5000; ++i) {
    seed = seed * 1103515245u + 12345u;
    unsigned int pick = (seed >> 16) % 10;
    unsigned int c = pick < 6    ? 0x20 + (seed >> 8) % 0x5F
                     : pick == 6 ? 0x80 + (seed >> 4) % 0x780
                     : pick == 7 ? 0x800 + (seed >> 4) % 0xF000
                     : pick == 8 ? 0x10000 + (seed >> 4) % 0x20D40
                                 : 1 + (seed >> 4) % 0x7F;
    mixed.append(c);
  }
  tBytes mb;
  cEnDecUTF8().encode(mixed, mb);
  EXPECT_EQ(chars(fromUtf8(mb)), chars(mixed));
}

TEST(cEnDecUTF8, DecoderIsLenientAboutContinuationBytes) {
  // A stray continuation byte stands for itself.
  EXPECT_EQ(chars(fromUtf8(bytes({0x80, 0xBF, 0x41}))), V({0x80, 0xBF, 0x41}));
  // Continuation bytes are not checked: C3 41 is (0xC3 << 6) + 0x41 - 0x3080.
  EXPECT_EQ(chars(fromUtf8(bytes({0xC3, 0x41}))), V({0x81}));
  // Overlong forms decode to their value.
  EXPECT_EQ(chars(fromUtf8(bytes({0xC1, 0x81}))), V({0x41}));
  EXPECT_EQ(chars(fromUtf8(bytes({0xF7, 0xBF, 0xBF, 0xBF}))), V({0x1FFFFF}));
}

TEST(cEnDecUTF8, MalformedInputFailsWithIndexInsideTheCharacter) {
  const std::string end = "UTF8 decode error - unexpected end of data at index ";
  expectRuntime([] { fromUtf8(bytes({0xC3})); }, end + "1!");
  expectRuntime([] { fromUtf8(bytes({0x41, 0x42, 0xE2, 0x82})); }, end + "2!");
  expectRuntime([] { fromUtf8(bytes({0xF0, 0x90, 0x80})); }, end + "3!");
  expectRuntime([] { fromUtf8(bytes({0x00})); }, end + "0!");
  expectRuntime([] { fromUtf8(bytes({0xC3, 0x00, 0x41})); }, end + "1!");

  const std::string length = "UTF8 decode error - unsupported length of ";
  expectRuntime([] { fromUtf8(bytes({0xF8, 0x80, 0xB0, 0xB5, 0x80})); }, length + "4!");
  expectRuntime([] { fromUtf8(bytes({0xFB})); }, length + "4!");
  expectRuntime([] { fromUtf8(bytes({0xFC})); }, length + "5!");
  expectRuntime([] { fromUtf8(bytes({0xFD, 0x80})); }, length + "5!");
  expectRuntime([] { fromUtf8(bytes({0xFE})); }, length + "6!");
  expectRuntime([] { fromUtf8(bytes({0xFF, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80})); }, length + "7!");

  // Everything a five-byte encoding produces is rejected again.
  tBytes five;
  cEnDecUTF8().encode(text({0x30D40}), five);
  expectRuntime([&five] { fromUtf8(five); }, length + "4!");
}

TEST(cEnDecUTF8, FailedDecodeKeepsTheCharactersBeforeTheError) {
  // A NUL deep inside a plain ASCII run: the block-wise path must stop at it.
  tBytes b;
  for (unsigned int i = 0; i < 37; ++i) b.append(static_cast<char>('a' + i % 26));
  b.append('\0');
  for (unsigned int i = 0; i < 20; ++i) b.append('z');
  cString out = text({0x263A});
  expectRuntime([&] { cEnDecUTF8().decode(b, out); }, "UTF8 decode error - unexpected end of data at index 0!");
  ASSERT_EQ(out.size(), 38u);
  EXPECT_EQ(out[0], 0x263Au);
  EXPECT_EQ(out[1], static_cast<unsigned int>('a'));
  EXPECT_EQ(out[37], static_cast<unsigned int>('a' + 36 % 26));

  // Decoding appends to what the target holds.
  cString target = text({0x41});
  cEnDecUTF8().decode(bytes({0xC3, 0xA9}), target);
  EXPECT_EQ(chars(target), V({0x41, 0xE9}));

  // A view onto the middle of a buffer decodes only the view.
  tBytes whole = bytes({0xFF, 0x41, 0xC3, 0xA9, 0xFF});
  cString part;
  cEnDecUTF8().decode(tConstArrayRef<char>(whole, 1, 3), part);
  EXPECT_EQ(chars(part), V({0x41, 0xE9}));
}

// The decoder takes long inputs in blocks where the processor allows it and
// byte by byte elsewhere. Both must agree exactly with a plain reading of the
// decoder's rules, in characters, error text and partial output, so these
// tests compare it with one on inputs long enough for blocks, on both paths.
class cEnDecUTF8Blocks : public cBothPaths {};
INSTANTIATE_TEST_SUITE_P(Paths, cEnDecUTF8Blocks, ::testing::Bool(), pathName);

TEST_P(cEnDecUTF8Blocks, ValidTextAndEveryPrefixOfIt) {
  unsigned int seed = 7;
  for (unsigned int chars = 0; chars < 120; ++chars) {
    const tInput in = validText(seed, chars);
    ASSERT_EQ(decoded(in), reference(in)) << chars << " chars";
    ASSERT_TRUE(reference(in).error.empty());
  }
  const tInput in = validText(seed, 40);
  for (std::size_t n = 0; n < in.size(); ++n) {
    const tInput cut(in.begin(), in.begin() + static_cast<std::ptrdiff_t>(n));
    ASSERT_EQ(decoded(cut), reference(cut)) << "first " << n << " bytes";
  }
}

TEST_P(cEnDecUTF8Blocks, EveryKindOfByteAtEveryPosition) {
  static const unsigned char probes[] = {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC0, 0xC3, 0xDF,
                                         0xE0, 0xEF, 0xF0, 0xF7, 0xF8, 0xFC, 0xFE, 0xFF};
  unsigned int seed = 11;
  for (unsigned int round = 0; round < 3; ++round) {
    const tInput in = validText(seed, 30);
    for (std::size_t i = 0; i < in.size(); ++i)
      for (unsigned char probe : probes) {
        tInput bad = in;
        bad[i] = probe;
        ASSERT_EQ(decoded(bad), reference(bad)) << "byte " << i << " set to " << int(probe);
      }
  }
}

TEST_P(cEnDecUTF8Blocks, RandomBytesAndDamagedText) {
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
      in = validText(seed, next(seed) % 60);
      for (unsigned char& b : in)
        if (next(seed) % 40 == 0) b = static_cast<unsigned char>(next(seed));
    }
    ASSERT_EQ(decoded(in), reference(in)) << "round " << round;
  }
}

// The encoder too: blocks of characters on the vector path, one at a time on
// the portable one, and exactly the bytes of the rule on both, whatever the
// mix of lengths, the length of the text and what the output held before.
TEST_P(cEnDecUTF8Blocks, EncodesLikeTheRule) {
  unsigned int seed = 5;
  auto check = [](const cString& s) {
    tBytes out = bytes({0x21});
    cEnDecUTF8().encode(s, out);
    std::vector<unsigned int> expected = referenceUtf8(s);
    expected.insert(expected.begin(), 0x21);
    ASSERT_EQ(units(out), expected) << s.size() << " chars";
  };
  for (unsigned int n = 0; n < 300; ++n) check(randomText(seed, n, n % 2 == 1));
  // Across the chunks in which long texts are encoded.
  for (unsigned int n : {4095u, 4096u, 4097u, 8229u, 20000u}) check(randomText(seed, n, true));
  cString ascii;
  for (unsigned int i = 0; i < 5000; ++i) ascii.append(0x20 + nextRandom(seed) % 0x5F);
  check(ascii);
  // Each length of character between ASCII runs of every length.
  for (unsigned int c : {0x80u, 0x800u, 0x10000u, 200000u, 0x80000000u})
    for (unsigned int run = 0; run < 40; ++run) {
      cString s;
      for (unsigned int i = 0; i < 70; ++i) s.append(i % (run + 1) == run ? c + i : 0x41 + i % 26);
      check(s);
    }
}
