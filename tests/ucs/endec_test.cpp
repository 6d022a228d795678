#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/tsharedobject.h"
#include "qelcore/ucs/cabstractendec.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cucsexceptions.h"

using qstd::cAbstractException;
using qstd::tArray;
using qstd::tConstArrayRef;
using qucs::cAbstractEnDec;
using qucs::cEnDecUTF16;
using qucs::cEnDecUTF8;
using qucs::cString;

namespace {

typedef tArray<char> tBytes;

tBytes bytes(std::initializer_list<unsigned int> list) {
  tBytes b;
  for (unsigned int v : list) b.append(static_cast<char>(v));
  return b;
}

std::vector<unsigned int> units(const tBytes& b) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < b.size(); ++i) v.push_back(static_cast<unsigned char>(b[i]));
  return v;
}

std::vector<unsigned int> units(const tArray<unsigned short>& a) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < a.size(); ++i) v.push_back(a[i]);
  return v;
}

std::vector<unsigned int> chars(const cString& s) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < s.size(); ++i) v.push_back(s[i]);
  return v;
}

cString text(std::initializer_list<unsigned int> list) {
  cString s;
  for (unsigned int c : list) s.append(c);
  return s;
}

std::string messageOf(const cAbstractException& e) {
  if (e.liMessage() == nullptr) return "<no message>";
  qstd::cAsciiString s;
  e.liMessage()->untranslated(s);
  return s.c_str();
}

// Runs `f`, which must throw an exception of the library with that kind and text.
template <typename F>
void expectFailure(F f, cAbstractException::Type type, const std::string& message) {
  try {
    f();
    ADD_FAILURE() << "no exception, expected: " << message;
  } catch (const cAbstractException& e) {
    EXPECT_EQ(messageOf(e), message);
    EXPECT_EQ(e.type(), type) << message;
  }
}

template <typename F>
void expectRuntime(F f, const std::string& message) {
  expectFailure(f, cAbstractException::TypeRuntime, message);
}

std::vector<unsigned int> utf8(const cString& s) {
  tBytes out;
  cEnDecUTF8().encode(s, out);
  return units(out);
}

cString fromUtf8(const tBytes& b) {
  cString out;
  cEnDecUTF8().decode(b, out);
  return out;
}

std::vector<unsigned int> utf16(unsigned int flags, const cString& s) {
  tBytes out;
  cEnDecUTF16(flags).encode(s, out);
  return units(out);
}

cString fromUtf16(unsigned int flags, const tBytes& b) {
  cString out;
  cEnDecUTF16(flags).decode(b, out);
  return out;
}

typedef std::vector<unsigned int> V;

}  // namespace

TEST(EnDecUTF8, EncodesEveryLengthWithTheLibrarysThresholds) {
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

TEST(EnDecUTF8, EncodingAppendsAndEncodeCharMatchesEncode) {
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

TEST(EnDecUTF8, RoundTripsBelowTheFiveByteThreshold) {
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

TEST(EnDecUTF8, DecoderIsLenientAboutContinuationBytes) {
  // A stray continuation byte stands for itself.
  EXPECT_EQ(chars(fromUtf8(bytes({0x80, 0xBF, 0x41}))), V({0x80, 0xBF, 0x41}));
  // Continuation bytes are not checked: C3 41 is (0xC3 << 6) + 0x41 - 0x3080.
  EXPECT_EQ(chars(fromUtf8(bytes({0xC3, 0x41}))), V({0x81}));
  // Overlong forms decode to their value.
  EXPECT_EQ(chars(fromUtf8(bytes({0xC1, 0x81}))), V({0x41}));
  EXPECT_EQ(chars(fromUtf8(bytes({0xF7, 0xBF, 0xBF, 0xBF}))), V({0x1FFFFF}));
}

TEST(EnDecUTF8, MalformedInputFailsWithIndexInsideTheCharacter) {
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

TEST(EnDecUTF8, FailedDecodeKeepsTheCharactersBeforeTheError) {
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

TEST(EnDecUTF16, EncodesBytesInTheChosenOrderWithOptionalMark) {
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

TEST(EnDecUTF16, EncodesUnitsSwappedForBigEndian) {
  tArray<unsigned short> le, be, plain;
  cEnDecUTF16(4).encode(text({0x41, 0x1F600}), le);
  EXPECT_EQ(units(le), V({0xFEFF, 0x0041, 0xD83D, 0xDE00}));
  cEnDecUTF16(6).encode(text({0x41}), be);
  EXPECT_EQ(units(be), V({0xFFFE, 0x4100}));
  cEnDecUTF16(1).encodeCString(text({0x41, 0x42}), plain);
  EXPECT_EQ(units(plain), V({0x41, 0x42, 0}));
}

TEST(EnDecUTF16, UnmappableCharactersFailWithoutWritingAnything) {
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

TEST(EnDecUTF16, DecodingNeedsAKnownOrderOrAMark) {
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

TEST(EnDecUTF16, DecodesPairsAndRejectsBrokenData) {
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

TEST(EnDecUTF16, CStringUnitsRoundTripForEveryFlagCombination) {
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

TEST(EnDecUTF16, CStringDecodingTakesTheMarkAsNativeOrSwapped) {
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

namespace {
class cNamedOnly : public cAbstractEnDec {
public:
  qstd::cAsciiString name() const override { return qstd::cAsciiString("Endec-Test"); }
};
}  // namespace

TEST(EnDec, BaseReportsMissingConversionsAsBugsAndEndsCStringsWithFourZeros) {
  const cNamedOnly endec;
  const auto bug = cAbstractException::TypeBug;
  tBytes b;
  tArray<unsigned short> u;
  cString s = text({0x41});
  expectFailure([&] { endec.encode(s, b); }, bug, "Not implemented: Endec-Test::encode (ucs32 -> ascii)");
  expectFailure([&] { endec.encode(s, u); }, bug, "Not implemented: Endec-Test::encode (ucs32 -> ucs16)");
  expectFailure([&] { endec.decode(tConstArrayRef<char>(b), s); }, bug,
                "Not implemented: Endec-Test::decode (ucs16 -> ascii)");
  expectFailure([&] { endec.decode(tConstArrayRef<unsigned short>(u), s); }, bug,
                "Not implemented: Endec-Test::decode (ucs16 -> ucs32)");
  expectFailure([&] { cEnDecUTF8().encode(s, u); }, bug, "Not implemented: Endec-UTF8::encode (ucs32 -> ucs16)");
  expectFailure([&] { cEnDecUTF16(1).decode(tConstArrayRef<unsigned short>(u), s); }, bug,
                "Not implemented: Endec-UTF16::decode (ucs16 -> ucs32)");

  cString out = text({0x42});
  endec.reEncode(s, out);
  endec.reDecode(s, out);
  EXPECT_EQ(chars(out), V({0x42}));

  tBytes c8, c16;
  cEnDecUTF8().encodeCString(text({0xE9}), c8);
  EXPECT_EQ(units(c8), V({0xC3, 0xA9, 0, 0, 0, 0}));
  cEnDecUTF16(6).encodeCString(text({0x41}), c16);
  EXPECT_EQ(units(c16), V({0xFE, 0xFF, 0x00, 0x41, 0, 0, 0, 0}));
}

TEST(EnDec, NamesAndTheDefault) {
  EXPECT_STREQ(cEnDecUTF8().name().c_str(), "Endec-UTF8");
  EXPECT_STREQ(cEnDecUTF16(6).name().c_str(), "Endec-UTF16");
  EXPECT_STREQ(cEnDecUTF8::defaultEnDec().name().c_str(), "Endec-UTF8");
  EXPECT_EQ(&cEnDecUTF8::defaultEnDec(), &cEnDecUTF8::defaultEnDec());
}

TEST(UCSExceptions, WrappersLinkTheirCause) {
  qstd::cRuntimeException cause(qucs::cLIMessage("$QTR$inner"), "x.cpp", 3);
  try {
    qucs::cUCSExceptions::throwUCSDecodeError(cause);
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(messageOf(e), "Unicode decode error!");
    ASSERT_NE(e.history(), nullptr);
    EXPECT_EQ(messageOf(*e.history()), "inner");
  }
  try {
    qucs::cUCSExceptions::throwUSCEncodeError(cause);
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(messageOf(e), "Unicode encoding error!");
    ASSERT_NE(e.history(), nullptr);
    EXPECT_EQ(messageOf(*e.history()), "inner");
  }
}

TEST(EnDec, HandedAroundAsSharedConstObjects) {
  qstd::tSharedObject<const cAbstractEnDec> endec(new qucs::cEnDecUTF8);
  qstd::tSharedObject<const cAbstractEnDec> copy(endec);
  EXPECT_EQ(2u, endec.refCount());
  qucs::cString text;
  copy->decode(tArray<char>("h\xc3\xa9", 3), text);
  EXPECT_EQ(2u, text.size());
  EXPECT_EQ(0xE9u, text[1]);
}
