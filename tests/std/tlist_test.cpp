#include "qelcore/std/tlist.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

#include "support/exceptiontext.h"

using qeltest::textOf;

namespace {

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
    EXPECT_EQ("Element could not be found in \"tList\" while operation \"first\"!", textOf(e));
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

TEST(tList, AShowMarkedListKeepsMarkedEntriesVisibleUntilThePurge) {
  qstd::tList<int> list(qstd::tList<int>::ShowMarked);
  for (int v : {1, 2, 3, 4}) list.append(v);
  // A walk that marks entries while a nested walk runs from one of them.
  std::string nested, marks;
  for (auto it = list.begin(); it != list.end(); ++it) {
    if (*it == 2) {
      it.eraseLater();
      for (auto inner = list.begin(); inner != list.end(); ++inner) {
        if (*inner == 4) inner.eraseLater();
        nested += std::to_string(*inner);
      }
    }
    marks += it.isMarked() ? 'x' : '.';
  }
  EXPECT_EQ("1234", nested);
  EXPECT_EQ(".x.x", marks);
  EXPECT_EQ("1234", joined(list));
  EXPECT_EQ(4u, list.size());
  EXPECT_EQ(4, list.last());
  EXPECT_TRUE(list.contains(2));
  EXPECT_TRUE(list.hasMarked());

  qstd::tList<int> copy(list);
  EXPECT_TRUE(copy.showsMarked());
  EXPECT_EQ("1234", joined(copy));
  copy.purge();
  EXPECT_EQ("13", joined(copy)) << "a copy keeps the marks";

  list.purge();
  EXPECT_EQ("13", joined(list));
  EXPECT_EQ(2u, list.size());
  list.eraseLater(list.begin());
  list.erase(list.begin());
  EXPECT_EQ("3", joined(list)) << "erase() of a marked entry keeps the count right";
  EXPECT_EQ(1u, list.size());
}

namespace {

// Records what the list holds when each value is disposed of.
struct cSeeSizeOnDispose {
  void dispose(int&) const { mpSeen->push_back(mpList->size()); }
  const qstd::tList<int, cSeeSizeOnDispose>* mpList = nullptr;
  std::vector<unsigned int>* mpSeen = nullptr;
};

class cWatchedList : public qstd::tList<int, cSeeSizeOnDispose> {
public:
  explicit cWatchedList(std::vector<unsigned int>& seen) {
    mDisposer.mpList = this;
    mDisposer.mpSeen = &seen;
  }
};

}  // namespace

TEST(tList, MovingSwappingAndClearingKeepEntriesAndMarks) {
  qstd::tList<int> shown(qstd::tList<int>::ShowMarked);
  for (int v : {1, 2, 3}) shown.append(v);
  shown.eraseLater(shown.begin());
  qstd::tList<int> moved(std::move(shown));
  EXPECT_TRUE(shown.empty());
  EXPECT_EQ("123", joined(moved));
  EXPECT_TRUE(moved.begin().isMarked());
  shown.append(9);  // a moved-from list is usable again
  EXPECT_EQ("9", joined(shown));

  qstd::tList<int> plain{4, 5};
  plain.swap(moved);
  EXPECT_TRUE(plain.showsMarked());
  EXPECT_FALSE(moved.showsMarked());
  EXPECT_EQ("123", joined(plain));
  EXPECT_EQ("45", joined(moved));
  EXPECT_EQ(4, moved.first());
  EXPECT_EQ(5, moved.last());
  plain.purge();
  EXPECT_EQ("23", joined(plain));
  moved = std::move(plain);
  EXPECT_EQ("23", joined(moved));
  EXPECT_TRUE(plain.empty());

  // Every value is disposed of with the list already empty.
  std::vector<unsigned int> seen;
  cWatchedList disposing(seen);
  for (int v : {1, 2, 3}) disposing.append(v);
  disposing.clear();
  EXPECT_EQ((std::vector<unsigned int>{0, 0, 0}), seen);
  EXPECT_TRUE(disposing.empty());
}
