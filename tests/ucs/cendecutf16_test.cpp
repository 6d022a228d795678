#include "qelcore/ucs/cendecutf16.h"

#include <gtest/gtest.h>

#include "endectestutil.h"

using namespace endectest;

TEST(cEnDecUTF16, EncodesBytesInTheChosenOrderWithOptionalMark) {
  EXPECT_EQ(utf16(4, text({0x41})), V({0xFF, 0xFE, 0x41, 0x00}));
  EXPECT_EQ(utf16(6, text({0x41})), V({0xFE, 0xFF, 0x00, 0x41}));
  EXPECT_EQ(utf16(0, text({0x41})), V({0x41, 0x00}));
  EXPECT_EQ(utf16(1, text({0x41})), V({0x41, 0x00}));
  EXPECT_EQ(utf16(2, text({0x41})), V({0x00, 0x41}));
  EXPECT_EQ(utf16(0, text({0x1F600, 0xFFFF})), V({0x3D, 0xD8, 0x00, 0xDE, 0xFF, 0xFF}));
  EXPECT_EQ(utf16(2, text({0x10FFFF})), V({0xDB, 0xFF, 0xDF, 0xFF}));
  EXPECT_EQ(utf16(6, text({})), V({0xFE, 0xFF}));
  EXPECT_EQ(utf16(0, text({})), V());
}

TEST(cEnDecUTF16, EncodesUnitsSwappedForBigEndian) {
  tArray<unsigned short> le, be, plain;
  cEnDecUTF16(4).encode(text({0x41, 0x1F600}), le);
  EXPECT_EQ(units(le), V({0xFEFF, 0x0041, 0xD83D, 0xDE00}));
  cEnDecUTF16(6).encode(text({0x41}), be);
  EXPECT_EQ(units(be), V({0xFFFE, 0x4100}));
  cEnDecUTF16(1).encodeCString(text({0x41, 0x42}), plain);
  EXPECT_EQ(units(plain), V({0x41, 0x42, 0}));
}

TEST(cEnDecUTF16, UnmappableCharactersFailWithoutWritingAnything) {
  for (unsigned int c : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
    tBytes out = bytes({0x7E});
    expectRuntime(
        [&] {
          cEnDecUTF16(4).encode(text({0x41, c}), out);
        },
        "Unable to convert unmappable character to utf16!");
    EXPECT_EQ(units(out), V({0x7E}));
    tArray<unsigned short> u;
    expectRuntime([&] { cEnDecUTF16(0).encode(text({c}), u); }, "Unable to convert unmappable character to utf16!");
    EXPECT_EQ(u.size(), 0u);
  }
}

TEST(cEnDecUTF16, DecodingNeedsAKnownOrderOrAMark) {
  const std::string bom = "Invalid byte order mark while decoding utf16!";
  expectRuntime([] { fromUtf16(0, bytes({0x41, 0x00})); }, bom);
  expectRuntime([] { fromUtf16(4, bytes({0x41, 0x00})); }, bom);
  expectRuntime([] { fromUtf16(5, bytes({0x41, 0x00})); }, bom);
  EXPECT_EQ(chars(fromUtf16(1, bytes({0x41, 0x00}))), V({0x41}));
  EXPECT_EQ(chars(fromUtf16(2, bytes({0x00, 0x41}))), V({0x41}));
  // The mark decides, whatever the order bits say.
  EXPECT_EQ(chars(fromUtf16(5, bytes({0xFE, 0xFF, 0x00, 0x41}))), V({0x41}));
  EXPECT_EQ(chars(fromUtf16(6, bytes({0xFF, 0xFE, 0x41, 0x00}))), V({0x41}));
  EXPECT_EQ(chars(fromUtf16(0, bytes({0xFE, 0xFF}))), V());
  // With a known order a mark is an ordinary character.
  EXPECT_EQ(chars(fromUtf16(1, bytes({0xFF, 0xFE}))), V({0xFEFF}));
  EXPECT_EQ(chars(fromUtf16(0, bytes({}))), V());
}

TEST(cEnDecUTF16, DecodesPairsAndRejectsBrokenData) {
  EXPECT_EQ(chars(fromUtf16(1, bytes({0x3D, 0xD8, 0x00, 0xDE, 0x41, 0x00}))), V({0x1F600, 0x41}));
  EXPECT_EQ(chars(fromUtf16(2, bytes({0xDB, 0xFF, 0xDF, 0xFF}))), V({0x10FFFF}));

  const std::string exhausted = "Source buffer exhausted!";
  expectRuntime([] { fromUtf16(1, bytes({0x41})); }, exhausted);
  expectRuntime([] { fromUtf16(1, bytes({0x41, 0x00, 0x42})); }, exhausted);
  expectRuntime([] { fromUtf16(4, bytes({0xFF, 0xFE, 0x42})); }, exhausted);

  const std::string corrupt = "Unable to read corrupt utf16 data!";
  expectRuntime([] { fromUtf16(1, bytes({0x3D, 0xD8})); }, corrupt);
  expectRuntime([] { fromUtf16(1, bytes({0x3D, 0xD8, 0x00})); }, corrupt);
  // At the end even a low surrogate is reported as cut off.
  expectRuntime([] { fromUtf16(1, bytes({0x00, 0xDC})); }, corrupt);

  const std::string invalid = "Invalid byte sequence while decoding utf16!";
  expectRuntime([] { fromUtf16(1, bytes({0x00, 0xDC, 0x41, 0x00})); }, invalid);
  expectRuntime([] { fromUtf16(1, bytes({0x3D, 0xD8, 0x41, 0x00})); }, invalid);
  expectRuntime([] { fromUtf16(1, bytes({0x3D, 0xD8, 0x3D, 0xD8})); }, invalid);

  // Partial output stays in the target.
  cString out;
  expectRuntime([&] { cEnDecUTF16(1).decode(bytes({0x41, 0x00, 0x3D, 0xD8}), out); }, corrupt);
  EXPECT_EQ(chars(out), V({0x41}));
}

TEST(cEnDecUTF16, CStringUnitsRoundTripForEveryFlagCombination) {
  const cString s = text({0x41, 0xE9, 0x20AC, 0x1F600, 0x10FFFF, 0xFEFF});
  for (unsigned int flags = 0; flags < 8; ++flags) {
    cEnDecUTF16 endec(flags);
    tArray<unsigned short> u;
    endec.encodeCString(s, u);
    cString back;
    if ((flags & 3) == 0 && (flags & 4) == 0) {
      // Neither an order nor a mark: the reader cannot know the order.
      expectRuntime([&] { endec.decodeCString(u.data(), back); }, "Invalid byte order mark while decoding utf16!");
    } else {
      endec.decodeCString(u.data(), back);
      EXPECT_EQ(chars(back), chars(s)) << "flags " << flags;
    }
    tBytes b;
    endec.encode(s, b);
    if ((flags & 4) != 0 || (flags & 3) != 0) {
      cString fromBytes;
      endec.decode(b, fromBytes);
      EXPECT_EQ(chars(fromBytes), chars(s)) << "flags " << flags;
    }
  }
}

TEST(cEnDecUTF16, CStringDecodingTakesTheMarkAsNativeOrSwapped) {
  cEnDecUTF16 endec(4);
  const unsigned short native[] = {0xFEFF, 0x41, 0xD83D, 0xDE00, 0};
  const unsigned short swapped[] = {0xFFFE, 0x4100, 0x3DD8, 0x00DE, 0};
  cString a, b;
  endec.decodeCString(native, a);
  endec.decodeCString(swapped, b);
  EXPECT_EQ(chars(a), V({0x41, 0x1F600}));
  EXPECT_EQ(chars(b), V({0x41, 0x1F600}));

  const unsigned short cut[] = {0xFEFF, 0x41, 0xD83D, 0};
  const unsigned short lone[] = {0x41, 0xDC00, 0x42, 0};
  const unsigned short empty[] = {0};
  cString out;
  expectRuntime([&] { endec.decodeCString(cut, out); }, "Unable to read corrupt utf16 data!");
  expectRuntime([&] { cEnDecUTF16(1).decodeCString(lone, out); }, "Invalid byte sequence while decoding utf16!");
  cString none;
  endec.decodeCString(empty, none);
  EXPECT_EQ(none.size(), 0u);
}

// Encoding takes blocks of characters on the vector path and goes one at a
// time on the portable one; both must give the bytes and units of the rule,
// for every flag, and leave the output as it was when a character cannot be
// encoded, wherever it stands.
class cEnDecUTF16Paths : public cBothPaths {};
INSTANTIATE_TEST_SUITE_P(Paths, cEnDecUTF16Paths, ::testing::Bool(), pathName);

TEST_P(cEnDecUTF16Paths, EncodesLikeTheRule) {
  unsigned int seed = 17;
  std::vector<cString> texts;
  for (unsigned int n = 0; n < 200; ++n) texts.push_back(randomText(seed, n, n % 3 == 2));
  for (unsigned int n : {4095u, 4096u, 4097u, 9000u}) texts.push_back(randomText(seed, n, n == 9000u));
  cString bmp;
  for (unsigned int i = 0; i < 3000; ++i) bmp.append(0x20 + nextRandom(seed) % 0xD000);
  texts.push_back(bmp);
  // A character that cannot be encoded in the second chunk of a long text.
  cString late = randomText(seed, 6000);
  late[5000] = 0xDC00;
  texts.push_back(late);

  for (unsigned int flags : {0u, 1u, 2u, 4u, 5u, 6u}) {
    const bool mark = (flags & 4) != 0, bigEndian = (flags & 2) != 0;
    for (const cString& s : texts) {
      bool unmappable = false;
      const std::vector<unsigned int> expected = referenceUtf16(s, mark, bigEndian, unmappable);
      tBytes out = bytes({0x7E});
      tArray<unsigned short> u;
      u.append(0x7E7E);
      if (unmappable) {
        expectRuntime([&] { cEnDecUTF16(flags).encode(s, out); }, "Unable to convert unmappable character to utf16!");
        expectRuntime([&] { cEnDecUTF16(flags).encode(s, u); }, "Unable to convert unmappable character to utf16!");
        ASSERT_EQ(units(out), V({0x7E}));
        ASSERT_EQ(units(u), V({0x7E7E}));
        continue;
      }
      cEnDecUTF16(flags).encode(s, out);
      std::vector<unsigned int> withPrefix = expected;
      withPrefix.insert(withPrefix.begin(), 0x7E);
      ASSERT_EQ(units(out), withPrefix) << "flags " << flags << ", " << s.size() << " chars";
      // Units: the machine's order, swapped for big-endian.
      cEnDecUTF16(flags).encode(s, u);
      bool ignored = false;
      const std::vector<unsigned int> little = referenceUtf16(s, mark, false, ignored);
      V expectedUnits = {0x7E7E};
      for (std::size_t i = 0; i < little.size(); i += 2) {
        const unsigned int unit = little[i] | (little[i + 1] << 8);
        expectedUnits.push_back(bigEndian ? ((unit & 0xFF) << 8) | (unit >> 8) : unit);
      }
      ASSERT_EQ(units(u), expectedUnits) << "flags " << flags << ", " << s.size() << " chars";
    }
  }
}
