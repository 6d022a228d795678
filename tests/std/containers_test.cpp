#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/thash.h"
#include "qelcore/std/tlist.h"
#include "qelcore/std/tptrlist.h"
#include "qelcore/std/tptrvector.h"
#include "qelcore/std/tstack.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/climessage.h"

using qstd::cAsciiString;

namespace {

std::string text(const qstd::cAbstractException& e) {
  cAsciiString out;
  e.liMessage()->untranslated(out);
  return out.c_str();
}

int gAlive = 0;

struct cItem {
  explicit cItem(int v) : miValue(v) { ++gAlive; }
  ~cItem() { --gAlive; }
  int miValue;
};

template <typename L>
std::string joined(const L& list) {
  std::string s;
  for (int v : list) s += std::to_string(v);
  return s;
}

}  // namespace

TEST(tList, WalkSurvivesEraseLaterOfTheCurrentEntry) {
  qstd::tList<int> list{1, 2, 3, 4, 5};
  for (auto it = list.begin(); it != list.end(); ++it) {
    if (*it % 2 == 0) it.eraseLater();
    if (*it == 3) list.append(7);  // reached by this walk
  }
  EXPECT_EQ("1357", joined(list));
  EXPECT_EQ(4u, list.size());
  EXPECT_TRUE(list.hasMarked());

  // A nested walk (a nested loop run from an entry) skips marks of the outer one.
  std::string seen;
  for (auto outer = list.begin(); outer != list.end(); ++outer) {
    if (*outer == 3) {
      list.eraseLater(outer);
      for (int v : list) seen += std::to_string(v);
    }
  }
  EXPECT_EQ("157", seen);
  EXPECT_EQ(1, list.first());
  EXPECT_EQ(7, list.last());
  list.removeLater(7);
  EXPECT_EQ(5, list.last());
  list.purge();
  EXPECT_FALSE(list.hasMarked());
  EXPECT_EQ("15", joined(list));

  auto next = list.erase(list.begin());
  EXPECT_EQ(5, *next);
  EXPECT_TRUE(list.remove(5));
  EXPECT_FALSE(list.remove(5));
  EXPECT_TRUE(list.empty());
  try {
    list.first();
    ADD_FAILURE();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ("Element could not be found in \"tList\" while operation \"first\"!", text(e));
  }
  list.prepend(2);
  list.prepend(1);
  list.insert(list.end(), 3);
  qstd::tList<int> copy(list);
  list.eraseLater(list.begin());
  qstd::tList<int> liveOnly(list);
  EXPECT_EQ("123", joined(copy));
  EXPECT_EQ("23", joined(liveOnly));
}

TEST(tPtrList, DeletesOnPurgeNotOnMark) {
  gAlive = 0;
  {
    qstd::tPtrList<cItem> works;
    for (int i = 0; i < 4; ++i) works.append(new cItem(i));
    for (auto it = works.begin(); it != works.end(); ++it) {
      if ((*it)->miValue % 2 == 1) {
        works.eraseLater(it);
        EXPECT_EQ(4, gAlive);  // still running: the object lives on
        EXPECT_GE((*it)->miValue, 1);
      }
    }
    works.purge();
    EXPECT_EQ(2, gAlive);
    qstd::tAutoPtr<cItem> taken = works.take(works.begin());
    EXPECT_EQ(0, taken->miValue);
    EXPECT_EQ(1u, works.size());
    EXPECT_THROW(works.take(works.end()), qstd::cBugException);
  }
  EXPECT_EQ(0, gAlive);
}

TEST(tVector, ChecksIndicesAndOwnedVariantDeletes) {
  qstd::tVector<cAsciiString> v;
  v.append("a");
  v.append(cAsciiString("c"));
  v.insert(1, "b");
  EXPECT_STREQ("b", v[1].c_str());
  bool found = false;
  EXPECT_EQ(2u, v.find("c", found));
  EXPECT_TRUE(found);
  try {
    v.at(3);
    ADD_FAILURE();
  } catch (const qstd::cOutOfRangeException& e) {
    EXPECT_EQ("Index out of range in tVector / at. The index should be between 0 - 2 but is 3!", text(e));
  }
  EXPECT_THROW(v.insert(4, "x"), qstd::cOutOfRangeException);
  EXPECT_THROW(v.erase(1, 3), qstd::cOutOfRangeException);
  v.erase(0, 2);
  EXPECT_STREQ("c", v.takeLast().c_str());
  EXPECT_THROW(v.takeLast(), qstd::cBugException);

  gAlive = 0;
  {
    qstd::tPtrVector<cItem> owned;
    owned.append(new cItem(1));
    owned.append(qstd::tAutoPtr<cItem>(new cItem(2)));
    owned.insert(0, new cItem(0));
    EXPECT_THROW(owned.insert(9, new cItem(9)), qstd::cOutOfRangeException);  // no leak either
    EXPECT_EQ(3, gAlive);
    owned.replace(2, new cItem(5));
    owned.erase(0);
    EXPECT_EQ(2, gAlive);
    EXPECT_EQ(5, owned.last()->miValue);
    qstd::tAutoPtr<cItem> back = owned.take(0);
    EXPECT_EQ(1, back->miValue);
  }
  EXPECT_EQ(0, gAlive);

  // Lists of objects owned elsewhere never delete them.
  cItem a(1);
  cItem b(2);
  {
    qstd::tPtrVector<cItem> vector(false);
    qstd::tPtrList<cItem> list(false);
    vector.append(&a);
    vector.append(&b);
    list.append(&a);
    list.append(&b);
    vector.erase(0);
    vector.replace(0, &a);
    list.remove(&a);
    list.eraseLater(list.begin());
    list.purge();
    vector.append(&b);
    list.append(&b);
    EXPECT_EQ(qstd::tAutoPtrType::NotOwned, vector.take(1).pointerType());
  }
  EXPECT_EQ(2, gAlive);
}

TEST(tHash, LookupPairsAndStringKeys) {
  qstd::tHash<cAsciiString, int> h;
  EXPECT_TRUE(h.set("one", 1));
  EXPECT_FALSE(h.set("one", 11));
  EXPECT_FALSE(h.insert("one", 111));
  h["two"] = 2;
  EXPECT_EQ(11, h.find("one"));
  EXPECT_EQ(2, h.get(cAsciiString("tw") + "o"));
  EXPECT_TRUE(h.has("two"));
  EXPECT_EQ(nullptr, h.tryFind("three"));
  try {
    h.find("three");
    ADD_FAILURE();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ("Element could not be found in \"tHash\" while operation \"find\"!", text(e));
  }
  EXPECT_EQ(2u, h.keys().size());
  EXPECT_TRUE(h.remove("one"));
  EXPECT_FALSE(h.remove("one"));
  EXPECT_EQ(1u, h.size());

  qstd::tStack<int> s;
  s.push(1);
  s.push(2);
  EXPECT_EQ(1, s.at(1));
  EXPECT_EQ(2, s.pop());
  EXPECT_EQ(1, s.top());
  s.pop();
  EXPECT_THROW(s.pop(), qstd::cBugException);
}
