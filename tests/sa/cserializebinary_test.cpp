// The byte layout of the binary writer: one vector per element type, and
// contexts and labels as they appear on the wire.
#include "qelcore/sa/cserializebinary.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/sa/ctypereference.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "archivetestutil.h"
#include "support/exceptiontext.h"

using namespace satest;
using qsa::cSerializeBinary;

TEST(cSerializeBinary, EveryFixedWidthTypeHasItsIdAndLittleEndianPayload) {
  cSerializeBinary s;
  static_cast<unsigned char>(0xAB) >> s;
  'x' >> s;
  0x01020304u >> s;
  -2 >> s;
  0x0102030405060708ull >> s;
  -3ll >> s;
  true >> s;
  false >> s;
  1.0 >> s;
  static_cast<unsigned short>(0xBEEF) >> s;
  static_cast<short>(-1) >> s;

  Bytes e;
  u32(e, 2);
  e.push_back(0xAB);
  u32(e, 3);
  e.push_back('x');
  u32(e, 4);
  u32(e, 0x01020304u);
  u32(e, 5);
  u32(e, 0xFFFFFFFEu);
  u32(e, 6);
  u64(e, 0x0102030405060708ull);
  u32(e, 7);
  u64(e, 0xFFFFFFFFFFFFFFFDull);
  u32(e, 8);
  u32(e, 1);
  u32(e, 8);
  u32(e, 0);
  u32(e, 9);
  u64(e, 0x3FF0000000000000ull);
  u32(e, 17);
  e.push_back(0xEF);
  e.push_back(0xBE);
  u32(e, 18);
  e.push_back(0xFF);
  e.push_back(0xFF);
  EXPECT_EQ(bytesOf(s), e);
}

TEST(cSerializeBinary, StringsAndBlocks) {
  cSerializeBinary s;
  qstd::cAsciiString() >> s;
  qstd::cAsciiString("ab") >> s;
  qucs::cString("A\xE9") >> s;  // 'A' and U+00E9
  s.setStringStoreMode(cSerializeBinary::StoreUTF8);
  qucs::cString("A\xE9") >> s;
  qucs::cString() >> s;
  qstd::tArray<char>("xyz", 3) >> s;
  s.storeBlock(0, 0);

  Bytes e = words({10, 0});  // empty ASCII string: exactly 8 bytes
  e = cat(e, words({10, 2}));
  e.push_back('a');
  e.push_back('b');
  e = cat(e, words({11, 2, 'A', 0xE9}));  // 32-bit characters
  e = cat(e, words({16, 3}));             // UTF-8
  e.push_back('A');
  e.push_back(0xC3);
  e.push_back(0xA9);
  e = cat(e, words({16, 0}));
  e = cat(e, words({1, 3}));
  e.push_back('x');
  e.push_back('y');
  e.push_back('z');
  e = cat(e, words({1, 0}));
  EXPECT_EQ(bytesOf(s), e);
}

TEST(cSerializeBinary, UnknownStringModeStoresNothing) {
  cSerializeBinary s;
  s.setStringStoreMode(static_cast<cSerializeBinary::StringStoreMode>(7));
  qucs::cString("abc") >> s;
  EXPECT_EQ(s.currentPos(), 0u);
}

TEST(cSerializeBinary, ContextsWithAndWithoutName) {
  cSerializeBinary s;
  {
    qsa::cContext c(s.newContext("a"));
    c.release();
  }
  // 29 bytes; the size counts from the size element to the end: 25.
  Bytes named = words({12, 4, 25, 8, 1, 10, 1});
  named.push_back('a');
  EXPECT_EQ(bytesOf(s), named);

  cSerializeBinary u;
  {
    qsa::cContext c(u.newContext(0));
    7 >> u;
    c.release();
  }
  EXPECT_EQ(bytesOf(u), words({12, 4, 24, 8, 0, 5, 7}));
}

TEST(cSerializeBinary, NestedContextSizesAndLabels) {
  cSerializeBinary s;
  {
    qsa::cContext outer(s.newContext(0));
    1u >> s.newLabel("n");
    {
      qsa::cContext inner(s.newContext(0));
      inner.release();
    }
    outer.release();
  }
  Bytes e = words({12, 4, 0, 8, 0});
  e = cat(e, words({13, 10, 1}));
  e.push_back('n');
  e = cat(e, words({4, 1}));
  e = cat(e, words({12, 4, 16, 8, 0}));
  const unsigned int outerSize = static_cast<unsigned int>(e.size()) - 4;
  e[8] = static_cast<unsigned char>(outerSize);
  EXPECT_EQ(bytesOf(s), e);
}

TEST(cSerializeBinary, AbandonedContextLeavesNoTrace) {
  cSerializeBinary s;
  1 >> s;
  try {
    qsa::cContext c(s.newContext("dropped"));
    2 >> s;
    throw 42;
  } catch (int) {
  }
  EXPECT_EQ(s.currentPos(), 8u);
  3 >> s;  // overwrites what the abandoned context left behind
  EXPECT_EQ(bytesOf(s), words({5, 1, 5, 3}));
}

TEST(cSerializeBinary, ReleaseCurrentContextFinishesTheInnermost) {
  cSerializeBinary s;
  qsa::cContextRef ref = s.newContext(0);
  5u >> s;
  s.releaseCurrentContext();
  6u >> s;
  EXPECT_EQ(bytesOf(s), words({12, 4, 24, 8, 0, 4, 5, 4, 6}));
}

TEST(cSerializeBinary, ClearAndDataAreRefusedWithOpenContexts) {
  cSerializeBinary s;
  qsa::cContext c(s.newContext(0));
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { s.data(); }),
            "Calling data() with open contexts is invalid!");
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { s.clear(); }),
            "Calling erase() with open contexts is invalid!");
  c.release();
  EXPECT_EQ(s.data().size(), 20u);
}

TEST(cSerializeBinary, WritingIntoAnOutsideArrayAndSwapping) {
  qstd::tArray<char> target;
  {
    cSerializeBinary s(target);
    9u >> s;
    EXPECT_EQ(&s.ownData(), &target);
  }
  EXPECT_EQ(target.size(), 8u);

  cSerializeBinary s;
  1u >> s;
  qstd::tArray<char> other;
  s.swapData(other);
  EXPECT_EQ(other.size(), 8u);
  EXPECT_EQ(s.data().size(), 0u);
  2u >> s;
  EXPECT_EQ(bytesOf(s), words({4, 2}));
}

TEST(cSerializeBinary, GrowingFromEmptyWritesWhatASizedArchiveWrites) {
  // Appending inside the pool and growing it take different ways, and the
  // own array runs ahead of the written bytes: whichever was taken, an
  // outside array holds exactly the bytes written so far and the own one
  // hands out no more than those.
  qstd::tArray<char> target;
  cSerializeBinary outside(target);
  cSerializeBinary own;
  cSerializeBinary sized;
  for (unsigned int i = 0; i < 50000; ++i) 0ull >> sized;
  sized.rewind();
  for (unsigned int i = 0; i < 20000; ++i) {
    for (cSerializeBinary* s : {&outside, &own, &sized}) {
      switch (i % 5) {
        case 0:
          i >> *s;
          break;
        case 1:
          static_cast<unsigned long long>(i) * 977 >> *s;
          break;
        case 2:
          static_cast<char>(i) >> *s;
          break;
        case 3:
          static_cast<short>(i) >> *s;
          break;
        default:
          qstd::cAsciiString(std::string(i % 23, 'a').c_str()) >> *s;
          break;
      }
    }
    ASSERT_EQ(target.size(), outside.currentPos());
    if (i % 1000 == 0) {
      ASSERT_EQ(own.data().size(), own.currentPos());
    }
  }
  ASSERT_EQ(outside.currentPos(), sized.currentPos());
  ASSERT_EQ(own.currentPos(), sized.currentPos());
  EXPECT_EQ(bytesOf(outside), bytesOf(sized));
  EXPECT_EQ(bytesOf(own), bytesOf(sized));
}

TEST(cSerializeBinary, AGrownArchiveHandsOutCopiesCutToTheWrittenBytes) {
  cSerializeBinary s;
  for (unsigned int i = 0; i < 100000; ++i) i >> s;
  const unsigned int written = s.currentPos();
  const Bytes grown = bytesOf(s);
  cSerializeBinary copy(s);
  EXPECT_EQ(copy.ownData().size(), written);
  EXPECT_EQ(s.ownData().size(), written);

  // Writing on after the bytes were handed out appends to them.
  7u >> s;
  EXPECT_EQ(s.ownData().size(), written + 8);
  // The copy is deep: rewriting the original leaves it as it was.
  s.rewind();
  0xFFFFFFFFu >> s;
  EXPECT_EQ(bytesOf(copy), grown);
  qstd::tArray<char> taken;
  s.swapData(taken);
  EXPECT_EQ(taken.size(), 8u);
}

TEST(cSerializeBinary, AGrowthThatFailsLeavesTheArchiveAsItWas) {
  // 2^29 values of 8 bytes pass the 4 GiB an archive can hold: the growth
  // is refused before anything is read or allocated.
  qstd::tArray<char> target;
  cSerializeBinary outside(target);
  cSerializeBinary own;
  for (cSerializeBinary* s : {&outside, &own}) {
    for (unsigned int i = 0; i < 1000; ++i) i >> *s;
    const Bytes before = bytesOf(*s);
    const unsigned int one = 1;
    EXPECT_THROW(s->storeValues(&one, 0x20000000u), qstd::cOutOfRangeException);
    EXPECT_EQ(bytesOf(*s), before);
    EXPECT_EQ(s->ownData().growStep(), 5u);
    2u >> *s;
    EXPECT_EQ(bytesOf(*s), cat(before, words({4, 2})));
  }
  EXPECT_EQ(target.size(), 8008u);
}

TEST(cSerializeBinary, RewindOverwritesFromTheStartOfTheContext) {
  cSerializeBinary s;
  1u >> s;
  {
    qsa::cContext c(s.newContext(0));
    2u >> s;
    s.rewind();
    3u >> s;
    c.release();
  }
  EXPECT_EQ(bytesOf(s), words({4, 1, 12, 4, 24, 8, 0, 4, 3}));
  s.rewind();
  EXPECT_EQ(s.currentPos(), 0u);
}

TEST(cSerializeBinary, PatchRewritesAnElementInPlace) {
  cSerializeBinary s;
  0u >> s;
  1 >> s;
  unsigned int count = 42;
  s.patch(0, qsa::cTypeReference(count));
  EXPECT_EQ(s.currentPos(), 16u);
  int wrongType = 1;
  EXPECT_THROW(s.patch(0, qsa::cTypeReference(wrongType)), qstd::cTypeMissmatchException);
  EXPECT_EQ(bytesOf(s), words({4, 42, 5, 1}));
  EXPECT_THROW(s.patch(12, qsa::cTypeReference(count)), qstd::cOutOfRangeException);
}

namespace {

// Stores `before` followed by a marker, patches `before` with `after` and
// returns whether the patch was taken; a refused patch must leave every byte.
template <class T>
bool patched(const T& before, const T& after, cSerializeBinary::StringStoreMode mode = cSerializeBinary::StoreUCS4) {
  cSerializeBinary s;
  s.setStringStoreMode(mode);
  0xABCDu >> s;
  before >> s;
  0x5EAu >> s;
  const Bytes original = bytesOf(s);
  cSerializeBinary expected;
  expected.setStringStoreMode(mode);
  0xABCDu >> expected;
  after >> expected;
  0x5EAu >> expected;
  try {
    s.patch(8, qsa::cTypeReference(after));
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(bytesOf(s), original);
    EXPECT_NE(qeltest::textOf(e).find("cannot be patched"), std::string::npos) << qeltest::textOf(e);
    return false;
  }
  EXPECT_EQ(bytesOf(s), bytesOf(expected));
  return true;
}

}  // namespace

TEST(cSerializeBinary, PatchTakesOnlyAnElementOfTheSameSize) {
  // Fixed-width elements always fit their own type.
  EXPECT_TRUE(patched<unsigned char>(1, 2));
  EXPECT_TRUE(patched<char>('a', 'b'));
  EXPECT_TRUE(patched<short>(-1, 2));
  EXPECT_TRUE(patched<unsigned short>(1, 2));
  EXPECT_TRUE(patched<int>(-1, 2));
  EXPECT_TRUE(patched<long long>(-1, 1ll << 40));
  EXPECT_TRUE(patched<unsigned long long>(1, 2));
  EXPECT_TRUE(patched<bool>(true, false));
  EXPECT_TRUE(patched<double>(0.5, 2.5));

  // Elements with a length take the same length only.
  using qstd::cAsciiString;
  EXPECT_TRUE(patched(cAsciiString("ab"), cAsciiString("xy")));
  EXPECT_FALSE(patched(cAsciiString("ab"), cAsciiString("abcdefgh")));
  EXPECT_FALSE(patched(cAsciiString("abcdefgh"), cAsciiString("ab")));
  EXPECT_FALSE(patched(cAsciiString("ab"), cAsciiString()));
  EXPECT_TRUE(patched(qucs::cString("ab"), qucs::cString("xy")));
  EXPECT_FALSE(patched(qucs::cString("ab"), qucs::cString("abc")));
  EXPECT_TRUE(patched(qucs::cString("ab"), qucs::cString("xy"), cSerializeBinary::StoreUTF8));
  EXPECT_FALSE(patched(qucs::cString("ab"), qucs::cString(L"a\u00e9"), cSerializeBinary::StoreUTF8));
  EXPECT_TRUE(patched(qstd::tArray<char>("abc", 3), qstd::tArray<char>("xyz", 3)));
  EXPECT_FALSE(patched(qstd::tArray<char>("abc", 3), qstd::tArray<char>("ab", 2)));

  // Contexts and values made of several elements, element by element.
  EXPECT_TRUE(patched(qucs::cLIMessage("$QTR$a %x%") << 1, qucs::cLIMessage("$QTR$b %x%") << 2));
  EXPECT_FALSE(patched(qucs::cLIMessage("$QTR$a %x%") << 1, qucs::cLIMessage("$QTR$b %x%") << 22));
  const qstd::cBuildInfo built("cmake", "g++", "12", "host", "today", 1);
  EXPECT_TRUE(patched(built, qstd::cBuildInfo("qmake", "gcc", "13", "node", "later", 2)));
  EXPECT_FALSE(patched(built, qstd::cBuildInfo("cmake", "g++", "12", "hostname", "today", 1)));
}
