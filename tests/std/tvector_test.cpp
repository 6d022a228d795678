#include "qelcore/std/tvector.h"

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/tptrlist.h"
#include "qelcore/std/tptrvector.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qstd::cAsciiString;

namespace {

int gAlive = 0;

struct cItem {
  explicit cItem(int v) : miValue(v) { ++gAlive; }
  ~cItem() { --gAlive; }
  int miValue;
};

}  // namespace

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
    EXPECT_EQ("Index out of range in tVector / at. The index should be between 0 - 2 but is 3!", textOf(e));
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
