#include "qelcore/std/tautoptr.h"

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/climessage.h"

#include "support/counted.h"

using qeltest::alive;
using qeltest::cCounted;
using qeltest::cDerived;
using qeltest::makeCounted;
using qstd::tAutoPtr;
using qstd::tAutoPtrType;

typedef qeltest::cCountedTest tAutoPtrTest;

TEST_F(tAutoPtrTest, AutoPtrTransfersOnCopyAndFreesByType) {
  {
    tAutoPtr<cCounted> a(new cCounted);
    tAutoPtr<cCounted> b(a);
    EXPECT_EQ(nullptr, a.get());
    EXPECT_FALSE(a);
    EXPECT_TRUE(b);
    tAutoPtr<cCounted> c;
    c = b;
    EXPECT_EQ(nullptr, b.get());
    EXPECT_EQ(1, alive());
    c = makeCounted();  // the old object goes, the returned one is taken over
    EXPECT_EQ(1, alive());
    tAutoPtr<cDerived> d(new cDerived);
    tAutoPtr<cCounted> base(d);
    EXPECT_EQ(nullptr, d.get());
    EXPECT_EQ(2, alive());
  }
  EXPECT_EQ(0, alive());

  {
    tAutoPtr<cCounted> array(new cCounted[3], tAutoPtrType::ArrayObject);
    EXPECT_EQ(3, alive());
    EXPECT_EQ(tAutoPtrType::ArrayObject, array.pointerType());
    EXPECT_EQ(&array.get()[2], &array[2]);
  }
  EXPECT_EQ(0, alive());

  cCounted onStack;
  {
    tAutoPtr<cCounted> borrowed(&onStack, tAutoPtrType::NotOwned);
    tAutoPtr<cCounted> other(&onStack, static_cast<tAutoPtrType::PointerType>(5));
  }
  EXPECT_EQ(1, alive());

  tAutoPtr<cCounted> p(new cCounted);
  cCounted* raw = p.get();
  p.reset(raw);  // the same pointer: nothing freed
  EXPECT_EQ(2, alive());
  p.reinit(new cCounted);
  EXPECT_EQ(2, alive());
  delete p.release();
  EXPECT_EQ(1, alive());
  tAutoPtr<cCounted> q(new cCounted);
  p.swap(q);
  EXPECT_TRUE(p);
  EXPECT_FALSE(q);
  p.reset();
}
