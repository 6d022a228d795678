#include "qelcore/std/tarray.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/tarrayref.h"
#include "qelcore/std/tconstarrayref.h"
#include "qelcore/ucs/climessage.h"

using qstd::cAsciiString;
using qstd::tArray;
using qstd::tArrayRef;
using qstd::tConstArrayRef;

namespace {

typedef tArray<char, qstd::tArrayAsciiStringTraits<char>> tAscii;

std::string text(const qstd::cAbstractException& e) {
  cAsciiString out;
  e.liMessage()->untranslated(out);
  return out.c_str();
}

std::string str(const tArray<char>& a) { return std::string(a.data(true) ? a.data() : "", a.size()); }

// Runs `f`, expects the out-of-range exception and returns its text.
template <typename F>
std::string rangeFailure(F f, qstd::OutOfRangeType type) {
  try {
    f();
  } catch (const qstd::cOutOfRangeException& e) {
    EXPECT_EQ(type, e.outOfRangeType());
    return text(e);
  }
  ADD_FAILURE() << "no cOutOfRangeException";
  return "";
}

template <typename F>
std::string bugFailure(F f) {
  try {
    f();
  } catch (const qstd::cBugException& e) {
    return text(e);
  }
  ADD_FAILURE() << "no cBugException";
  return "";
}

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
    EXPECT_EQ("Out of bounds condition detected in \"tArray\" while executing \"cut\"!", text(e));
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

TEST(tArrayRef, ViewsWorkOnPartOfTheTarget) {
  tArray<char> a("0123456789");
  tConstArrayRef<char> view(a, 2, 6);  // "234567"
  bool found = false;
  EXPECT_EQ(3u, view.find('5', found));
  EXPECT_TRUE(found);
  EXPECT_EQ(6u, view.find('8', found));
  EXPECT_FALSE(found);
  EXPECT_TRUE(view.beginsWith("23"));
  EXPECT_TRUE(view.endsWith("67"));
  EXPECT_EQ(0, view.relation("234567", 6));

  tConstArrayRef<char> inner(view, 1, 2);  // resolved onto the array itself
  EXPECT_EQ(3u, inner.offset());
  EXPECT_EQ(static_cast<const qstd::tAbstractConstArrayProxy<char>*>(&a), inner.target());
  EXPECT_EQ('4', inner.at(1));
  EXPECT_EQ("Index out of range in tConstArrayRef / at. The index should be between 0 - 1 but is 2!",
            rangeFailure([&] { inner.at(2); }, qstd::OutOfRangeIndex));
  EXPECT_EQ("Index out of range in tConstArrayRef / set. The index should be between 0 - 8 but is 9!",
            rangeFailure([&] { tConstArrayRef<char> r(a, 2, 9); }, qstd::OutOfRangeSize));
  cAsciiString copied(view.cut(1, 3));
  EXPECT_STREQ("345", copied.c_str());

  tConstArrayRef<char> unset;
  EXPECT_EQ(0u, unset.size());
  EXPECT_NE(std::string::npos, bugFailure([&] { unset.at(0); }).find("std/tconstarrayref"));

  tArrayRef<char> w(a, 2, 3);  // "234"
  w.append("ab", 2);
  EXPECT_EQ("01234ab56789", str(a));
  w.insert(0, "<", 1);
  w.erase(1, 2);
  EXPECT_EQ(4u, w.size());
  EXPECT_EQ("01<4ab56789", str(a));
  w.fill('.');
  EXPECT_EQ("01....56789", str(a));
  w.setSize(2);
  EXPECT_EQ("01..56789", str(a));
  w.setSize(4);
  EXPECT_EQ(11u, a.size());
  EXPECT_EQ("Index out of range in tArrayRef / truncate. The index should be between 0 - 4 but is 5!",
            rangeFailure([&] { w.truncate(5); }, qstd::OutOfRangeValue));
  EXPECT_EQ("Index out of range in tArrayRef / erase. The index should be between 0 - 1 but is 2!",
            rangeFailure([&] { w.erase(3, 2); }, qstd::OutOfRangeSize));
}
