#include "qelcore/std/tarrayref.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/tconstarrayref.h"

#include "arraytestutil.h"

using arraytest::bugFailure;
using arraytest::rangeFailure;
using arraytest::str;
using qstd::cAsciiString;
using qstd::tArray;
using qstd::tArrayRef;
using qstd::tConstArrayRef;

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
