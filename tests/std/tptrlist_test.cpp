#include "qelcore/std/tptrlist.h"

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

namespace {

int gAlive = 0;

struct cItem {
  explicit cItem(int v) : miValue(v) { ++gAlive; }
  ~cItem() { --gAlive; }
  int miValue;
};

}  // namespace

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
