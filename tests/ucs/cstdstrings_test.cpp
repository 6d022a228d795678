// cString and the endecs on memory the caller owns and on the standard
// library's strings: the same results as through library arrays.
#include "qelcore/ucs/cstdstrings.h"

#include <string>

#include <gtest/gtest.h>

#include "endectestutil.h"

using namespace endectest;
using qucs::cStdStrings;

class cStdStringsPaths : public cBothPaths {};
INSTANTIATE_TEST_SUITE_P(Paths, cStdStringsPaths, ::testing::Bool(), pathName);

TEST_P(cStdStringsPaths, Utf8FromAndIntoTheCallersMemory) {
  unsigned int seed = 23;
  for (unsigned int n : {0u, 1u, 7u, 33u, 300u, 5000u}) {
    // Only what the decoder reads back: no NUL, no five-byte characters.
    cString s = randomText(seed, n);
    for (unsigned int i = 0; i < s.size(); ++i)
      if (s[i] == 0 || s[i] >= 200000) s[i] = 'x';
    std::vector<unsigned int> expected = utf8(s);
    const std::string bytes = cStdStrings::toUTF8(s);
    ASSERT_EQ(units(tBytes(bytes.data(), static_cast<unsigned int>(bytes.size()))), expected);
    EXPECT_EQ(chars(cStdStrings::fromUTF8(bytes)), chars(fromUtf8(tBytes(bytes.data(), bytes.size()))));

    // A buffer too short gets nothing and the length it needs.
    std::string buffer(expected.size() + 2, '~');
    const unsigned int needed =
        cStdStrings::toUTF8(s, &buffer[0], static_cast<unsigned int>(expected.size()) - (n ? 1 : 0));
    EXPECT_EQ(needed, expected.size());
    if (n) {
      EXPECT_EQ(buffer, std::string(expected.size() + 2, '~'));
    }
    EXPECT_EQ(cStdStrings::toUTF8(s, &buffer[0], static_cast<unsigned int>(buffer.size())), expected.size());
    EXPECT_EQ(buffer.substr(0, bytes.size()), bytes);
    EXPECT_EQ(buffer.substr(bytes.size()), "~~");
  }
}

TEST(cStdStrings, Utf8ErrorsAreTheDecodersAndLeaveTheStringAlone) {
  cString s = text({0x41});
  expectRuntime([&] { s = cStdStrings::fromUTF8({"\xC3", 1}); }, "UTF8 decode error - unexpected end of data at index 1!");
  EXPECT_EQ(chars(s), V({0x41}));
  s = cStdStrings::fromUTF8({"\xC3\xA9!", 3});
  EXPECT_EQ(chars(s), V({0xE9, 0x21}));
  // Any endec decodes raw bytes; a view onto them is never copied first.
  cString out = text({0x7E});
  cStdStrings::decode(cEnDecUTF16(cEnDecUTF16::FlagBigEndian), std::string_view("\0A\xD8\x3D\xDE\x00", 6), out);
  EXPECT_EQ(chars(out), V({0x7E, 0x41, 0x1F600}));
}

TEST(cStdStrings, Utf16UnitsInTheMachinesOrder) {
  const cString s = text({0x41, 0xE9, 0x20AC, 0x1F600, 0xFEFF});
  const std::u16string wide = cStdStrings::toUTF16(s);
  EXPECT_EQ(wide, (std::u16string{0x41, 0xE9, 0x20AC, 0xD83D, 0xDE00, 0xFEFF}));
  EXPECT_EQ(chars(cStdStrings::fromUTF16(wide)), chars(s));
  // A leading 0xFEFF is an ordinary character here.
  EXPECT_EQ(chars(cStdStrings::fromUTF16(std::u16string{0xFEFF, 0x42})), V({0xFEFF, 0x42}));
  expectRuntime([] { cStdStrings::toUTF16(text({0xD800})); }, "Unable to convert unmappable character to utf16!");
  expectRuntime([] { cStdStrings::fromUTF16(std::u16string{0xDC00}); }, "Unable to read corrupt utf16 data!");

  // The raw forms follow the flags as the unit arrays do.
  for (unsigned int flags : {1u, 2u, 4u, 6u}) {
    const cEnDecUTF16 endec(flags);
    tArray<unsigned short> expected;
    endec.encode(s, expected);
    unsigned short buffer[16];
    ASSERT_EQ(endec.encode(s.data(), s.size(), buffer, 3), expected.size());
    ASSERT_EQ(endec.encode(s.data(), s.size(), buffer, 16), expected.size());
    EXPECT_EQ(units(tArray<unsigned short>(buffer, expected.size())), units(expected)) << flags;
    cString back;
    endec.decodeUnits(buffer, expected.size(), back);
    EXPECT_EQ(chars(back), chars(s)) << flags;
  }
  // Without an order or a mark asked for, the units must bring their mark.
  const unsigned short marked[] = {0xFEFF, 0x41}, swapped[] = {0xFFFE, 0x4100}, bare[] = {0x41};
  cString a, b;
  cEnDecUTF16(0).decodeUnits(marked, 2, a);
  cEnDecUTF16(0).decodeUnits(swapped, 2, b);
  EXPECT_EQ(chars(a), V({0x41}));
  EXPECT_EQ(chars(b), V({0x41}));
  expectRuntime([&] { cEnDecUTF16(0).decodeUnits(bare, 1, a); }, "Invalid byte order mark while decoding utf16!");
}

// An endec of a plug-in that decodes 16-bit units: one character a unit.
class cUnitEnDec : public qucs::cAbstractEnDec {
public:
  qstd::cAsciiString name() const override { return qstd::cAsciiString("Endec-Units"); }
  void decode(const qstd::tConstArrayRef<unsigned short>& units, cString& out) const override {
    for (unsigned int i = 0; i < units.size(); ++i) out.append(static_cast<unsigned int>(units[i]));
  }
  using qucs::cAbstractEnDec::decode;
};

TEST(cStdStrings, AnyEndecOnStandardStrings) {
  // Units straight from a u16string, appended to what the text held.
  cString out = text({0x7E});
  cStdStrings::decode(cUnitEnDec(), std::u16string{0x41, 0xD83D}, out);
  EXPECT_EQ(chars(out), V({0x7E, 0x41, 0xD83D}));
  // What an endec does not implement stays its bug report.
  expectFailure([&] { cStdStrings::decode(cEnDecUTF8(), std::u16string{0x41}, out); }, cAbstractException::TypeBug,
                "Not implemented: Endec-UTF8::decode (ucs16 -> ucs32)");
  EXPECT_EQ(chars(out), V({0x7E, 0x41, 0xD83D}));

  // Bytes of any endec into a std::string, errors as the endec's own.
  const cEnDecUTF16 marked(cEnDecUTF16::FlagByteOrderMark | cEnDecUTF16::FlagBigEndian);
  EXPECT_EQ(cStdStrings::encode(marked, text({0x41, 0x1F600})), std::string("\xFE\xFF\0A\xD8\x3D\xDE\x00", 8));
  EXPECT_EQ(cStdStrings::encode(marked, cString()), std::string("\xFE\xFF"));
  EXPECT_EQ(cStdStrings::encode(cEnDecUTF8(), cString()), std::string());
  expectRuntime([&] { cStdStrings::encode(marked, text({0xDFFF})); }, "Unable to convert unmappable character to utf16!");
}
