#include "qelcore/std/tarray.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/tarrayref.h"
#include "qelcore/std/tconstarrayref.h"
#include "qelcore/ucs/climessage.h"

#include "arraytestutil.h"
#include "sa/archivetestutil.h"

using arraytest::bugFailure;
using arraytest::rangeFailure;
using arraytest::str;
using qeltest::textOf;
using qstd::tArray;

namespace {

typedef tArray<char, qstd::tArrayAsciiStringTraits<char>> tAscii;

}  // namespace

TEST(tArray, GrowsInSectorsOfTheGrowStep) {
  tArray<char> a;
  EXPECT_EQ(0u, a._poolSize());
  EXPECT_EQ(nullptr, a.data(true));
  a.append('x');
  EXPECT_EQ(32u, a._poolSize());
  for (int i = 1; i < 32; ++i) a.append(static_cast<char>('a' + i % 26));
  EXPECT_EQ(32u, a._poolSize());
  a.append('y');
  EXPECT_EQ(64u, a._poolSize());
  EXPECT_EQ(33u, a.size());
  EXPECT_EQ('x', a[0]);
  EXPECT_EQ('y', a[32]);
  EXPECT_EQ(33u, a.appendElements(40, 'z'));
  EXPECT_EQ(96u, a._poolSize());
  EXPECT_EQ('z', a[72]);

  tArray<char> exact;
  exact.setGrowStep(0);
  exact.append("abc", 3);
  EXPECT_EQ(3u, exact._poolSize());
  exact.append('d');
  EXPECT_EQ(4u, exact._poolSize());

  tArray<char> wide;
  wide.setGrowStep(37);  // only the low five bits count
  EXPECT_EQ(37u, wide.growStep());
  wide.append('a');
  EXPECT_EQ(32u, wide._poolSize());

  tArray<unsigned int> words(33);
  EXPECT_EQ(64u, words._poolSize());
}

TEST(tArray, StringTraitsKeepATerminatorAndOneSlot) {
  tAscii s;
  EXPECT_EQ(32u, s._poolSize());
  EXPECT_EQ('\0', s.data()[0]);
  s.append("hello");
  s.append('!');
  EXPECT_STREQ("hello!", s.data());
  s.insert(0, ">>");
  EXPECT_STREQ(">>hello!", s.data());
  s.erase(2, 5);
  EXPECT_STREQ(">>!", s.data());
  s.erase(3);
  EXPECT_EQ(0u, s.size());
  EXPECT_EQ(1u, s._poolSize());
  EXPECT_STREQ("", s.data());
  s.appendElements(40, 'q');
  EXPECT_EQ(64u, s._poolSize());
  EXPECT_EQ('\0', s.data()[40]);
  s.setSize(3);
  EXPECT_STREQ("qqq", s.data());
  s.clear();
  EXPECT_EQ(1u, s._poolSize());
  EXPECT_STREQ("", s.data());
}

TEST(tArray, ShrinkingFitsThePoolUnlessSwitchedOff) {
  tArray<char> a("abcdefgh");
  a.erase(0, 8);
  EXPECT_EQ(0u, a._poolSize());
  EXPECT_EQ(nullptr, a.data(true));
  EXPECT_NE(std::string::npos, bugFailure([&] { a.data(); }).find("(mpPool != 0)"));

  tArray<char> b("abcdefgh");
  b.setFitOnErase(false);
  b.truncate(2);
  EXPECT_EQ(32u, b._poolSize());
  b.erase(1);
  EXPECT_EQ(32u, b._poolSize());
  b.optimizeMemory();
  EXPECT_EQ(1u, b._poolSize());
  b.append("xyz");
  b.clear();  // fits whatever the flag says
  EXPECT_EQ(0u, b._poolSize());

  tArray<char> c("abcd");
  c.erase(2);  // the last two, not from index 2
  EXPECT_EQ("ab", str(c));
  c.truncate(1);
  EXPECT_EQ(1u, c._poolSize());
}

TEST(tArray, BoundsFailuresNameContainerOperationAndLimits) {
  tArray<char> a("abcd");
  EXPECT_EQ("Index out of range in tArray / at. The index should be between 0 - 3 but is 4!",
            rangeFailure([&] { a.at(4); }, qstd::OutOfRangeIndex));
  EXPECT_EQ("Index out of range in tArray / erase. The index should be between 0 - 2 but is 5!",
            rangeFailure([&] { a.erase(2, 5); }, qstd::OutOfRangeSize));
  EXPECT_EQ("Index out of range in tArray / erase. The index should be between 0 - 3 but is 5!",
            rangeFailure([&] { a.erase(5, 0); }, qstd::OutOfRangeIndex));
  EXPECT_EQ("Index out of range in tArray / insert. The index should be between 0 - 4 but is 5!",
            rangeFailure([&] { a.insert(5, 'x'); }, qstd::OutOfRangeValue));
  EXPECT_EQ("Index out of range in tArray / erase. The index should be between 0 - 4 but is 9!",
            rangeFailure([&] { a.erase(9u); }, qstd::OutOfRangeSize));
  EXPECT_EQ("Index out of range in tArray / truncate. The index should be between 0 - 4 but is 6!",
            rangeFailure([&] { a.truncate(6); }, qstd::OutOfRangeValue));
  EXPECT_EQ("Index out of range in tArray / data. The index should be between 0 - 2 but is 3!",
            rangeFailure([&] { a.data(2, 3); }, qstd::OutOfRangeSize));
  try {
    a.cut(2, 0xFFFFFFFFu);
    ADD_FAILURE();
  } catch (const qstd::cOutOfBoundsException& e) {
    EXPECT_EQ("Out of bounds condition detected in \"tArray\" while executing \"cut\"!", textOf(e));
  }
  EXPECT_EQ("abcd", str(a));  // nothing changed
  EXPECT_EQ(32u, a._poolSize());

  tArray<char> empty;
  EXPECT_EQ("Index out of range in tArray / proxyPatchData. The index should be between 0 - 0 but is 1!",
            rangeFailure([&] { empty.proxyPatchData(1, 0, "x"); }, qstd::OutOfRangeIndex));
  EXPECT_NE(std::string::npos, bugFailure([] {
                                 tArray<char> n(static_cast<const char*>(nullptr));
                               }).find("Assertion failed in file std/tarray:"));
  EXPECT_NE(std::string::npos,
            bugFailure([] { tArray<char> n(static_cast<const char*>(nullptr)); }).find("(pFrom != 0)!"));
}

TEST(tArray, InsertAndAppendHandleEndsAndTheirOwnContent) {
  tArray<char> a("abc");
  a.insert(3, "de");  // at size appends
  a.insert(0, 'X');
  EXPECT_EQ("Xabcde", str(a));
  a.optimizeMemory();
  EXPECT_EQ(6u, a.append(a.data(), a.size()));  // from itself, across a reallocation
  EXPECT_EQ("XabcdeXabcde", str(a));
  a.setGrowStep(0);
  a.insert(1, a.data() + 6, 6);
  EXPECT_EQ("XXabcdeabcdeXabcde", str(a));
  a.setData(a.data() + 1, 3);
  EXPECT_EQ("Xab", str(a));
}

TEST(tArray, FindSearchesTheGivenWindow) {
  tArray<char> a("abcabcab");
  bool found = false;
  EXPECT_EQ(2u, a.find("ca", found, 1));
  EXPECT_EQ(2u, a.find('c', found));
  EXPECT_TRUE(found);
  EXPECT_EQ(5u, a.find('c', found, 3, 0));  // count 0: to the end
  EXPECT_TRUE(found);
  EXPECT_EQ(8u, a.find('c', found, 3, 2));  // only "ab"
  EXPECT_FALSE(found);
  EXPECT_EQ(6u, a.find("ab", 2, found, 4, 100));
  EXPECT_TRUE(found);
  EXPECT_EQ(8u, a.find("abd", found));
  EXPECT_FALSE(found);
  EXPECT_EQ(8u, a.find("bcab", found, 5));
  EXPECT_FALSE(found);
  EXPECT_TRUE(a.contains("cab"));
  EXPECT_TRUE(a.beginsWith("abca"));
  EXPECT_TRUE(a.endsWith("cab"));
  EXPECT_FALSE(a.endsWith("abcabcabc"));
  EXPECT_TRUE(a.isEqual("bca", 3, 1));
  EXPECT_FALSE(a.isEqual("ab", 2, 7));

  const unsigned int w[] = {7, 1, 2, 7, 1, 3};
  tArray<unsigned int> words(w, 6);
  const unsigned int needle[] = {7, 1, 3};
  EXPECT_EQ(3u, words.find(needle, 3, found));
  EXPECT_TRUE(found);
}

TEST(tArray, RelationFollowsTheAllocationRules) {
  tArray<char> never;
  EXPECT_EQ(-1, never.relation("", 0));
  EXPECT_EQ(0, never.relation(nullptr, 0));
  tArray<char> emptied("x");
  emptied.setFitOnErase(false);
  emptied.erase(1);
  EXPECT_EQ(1, emptied.relation(nullptr, 0));
  EXPECT_EQ(0, emptied.relation("", 0));

  tArray<char> ab("ab");
  EXPECT_EQ(1, ab.relation("a", 1));
  EXPECT_EQ(-1, ab.relation("abc", 3));
  EXPECT_EQ(-1, ab.relation("b", 1));
  EXPECT_TRUE(ab == "ab");
  EXPECT_TRUE("ab" == ab);
  EXPECT_TRUE(ab < tArray<char>("ac"));
  EXPECT_TRUE(ab >= tArray<char>("ab"));
  EXPECT_TRUE(ab != "a");
}

TEST(tArray, ReplaceAndCopy) {
  tArray<char> a("a-b--c");
  EXPECT_EQ(3u, a.replace("-", "+="));
  EXPECT_EQ("a+=b+=+=c", str(a));
  EXPECT_EQ(2u, a.replace("+=", 2, "", 0, 3));
  EXPECT_EQ("a+=bc", str(a));
  EXPECT_EQ(1u, a.replace('b', 'B'));
  EXPECT_EQ("a+=Bc", str(a));

  tArray<char> never;
  EXPECT_EQ(0u, never.replace(static_cast<const char*>(nullptr), nullptr));
  EXPECT_NE(std::string::npos,
            bugFailure([&] { a.replace(static_cast<const char*>(nullptr), "x"); }).find("((a != 0) && (b != 0))"));

  a.setGrowStep(3);
  a.setFitOnErase(false);
  tArray<char> copy(a);
  copy[0] = 'Z';
  EXPECT_EQ('a', a[0]);
  EXPECT_EQ(3u, copy.growStep());
  EXPECT_FALSE(copy.fitOnErase());
  tArray<char> part = a.cut(1, 2);
  EXPECT_EQ("+=", str(part));
  part.swap(copy);
  EXPECT_EQ("Z+=Bc", str(part));
  EXPECT_EQ("+=", str(copy));
}

TEST(tArray, OtherArraysTravelAsGrowAndData) {
  qstd::tArray<unsigned int> numbers;
  numbers.setGrowStep(3);
  numbers.append(7u);
  numbers.append(8u);
  qsa::cSerializeBinary s;
  numbers >> s;
  EXPECT_EQ(satest::bytesOf(s), satest::words({4, 3, 4, 2, 4, 7, 4, 8}));  // no labels: the binary writer prefers none

  qsa::cSerializeToTypeString t;
  numbers >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piUInt32, piUInt32, piUInt32, piUInt32");

  qsa::cDeserializeBinary d(s.ownData());
  qstd::tArray<unsigned int> back;
  back << d;
  EXPECT_EQ(back.growStep(), 3u);
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[1], 8u);
}
