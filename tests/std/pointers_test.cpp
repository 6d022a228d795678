#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tsharedobject.h"
#include "qelcore/ucs/climessage.h"

using qstd::tAutoPtr;
using qstd::tAutoPtrType;
using qstd::tSharedObject;

namespace {

int gAlive = 0;

struct cCounted {
  cCounted() { ++gAlive; }
  virtual ~cCounted() { --gAlive; }
};
struct cDerived : cCounted {
  int miValue = 7;
};

tAutoPtr<cCounted> makeCounted() { return tAutoPtr<cCounted>(new cDerived); }

class PointerTest : public ::testing::Test {
protected:
  void SetUp() override { gAlive = 0; }
  void TearDown() override { EXPECT_EQ(0, gAlive); }
};

}  // namespace

TEST_F(PointerTest, AutoPtrTransfersOnCopyAndFreesByType) {
  {
    tAutoPtr<cCounted> a(new cCounted);
    tAutoPtr<cCounted> b(a);
    EXPECT_EQ(nullptr, a.get());
    EXPECT_FALSE(a);
    EXPECT_TRUE(b);
    tAutoPtr<cCounted> c;
    c = b;
    EXPECT_EQ(nullptr, b.get());
    EXPECT_EQ(1, gAlive);
    c = makeCounted();  // the old object goes, the returned one is taken over
    EXPECT_EQ(1, gAlive);
    tAutoPtr<cDerived> d(new cDerived);
    tAutoPtr<cCounted> base(d);
    EXPECT_EQ(nullptr, d.get());
    EXPECT_EQ(2, gAlive);
  }
  EXPECT_EQ(0, gAlive);

  {
    tAutoPtr<cCounted> array(new cCounted[3], tAutoPtrType::ArrayObject);
    EXPECT_EQ(3, gAlive);
    EXPECT_EQ(tAutoPtrType::ArrayObject, array.pointerType());
    EXPECT_EQ(&array.get()[2], &array[2]);
  }
  EXPECT_EQ(0, gAlive);

  cCounted onStack;
  {
    tAutoPtr<cCounted> borrowed(&onStack, tAutoPtrType::NotOwned);
    tAutoPtr<cCounted> other(&onStack, static_cast<tAutoPtrType::PointerType>(5));
  }
  EXPECT_EQ(1, gAlive);

  tAutoPtr<cCounted> p(new cCounted);
  cCounted* raw = p.get();
  p.reset(raw);  // the same pointer: nothing freed
  EXPECT_EQ(2, gAlive);
  p.reinit(new cCounted);
  EXPECT_EQ(2, gAlive);
  delete p.release();
  EXPECT_EQ(1, gAlive);
  tAutoPtr<cCounted> q(new cCounted);
  p.swap(q);
  EXPECT_TRUE(p);
  EXPECT_FALSE(q);
  p.reset();
}

TEST_F(PointerTest, SharedObjectCountsOwnsAndInvalidates) {
  tSharedObject<cCounted> empty(static_cast<cCounted*>(nullptr));
  EXPECT_TRUE(empty.null());
  EXPECT_EQ(0u, empty.refCount());
  EXPECT_EQ(nullptr, empty.sharedData());
  EXPECT_TRUE(empty == tSharedObject<cCounted>());

  {
    cCounted onStack;
    tSharedObject<cCounted> a(onStack);
    {
      tSharedObject<cCounted> b(a);
      EXPECT_EQ(2u, a.refCount());
    }
    EXPECT_TRUE(a.unique());
  }  // not owned: the handles never delete it
  EXPECT_EQ(0, gAlive);

  tSharedObject<cCounted> a(new cDerived);
  tSharedObject<cCounted> b(a);
  tSharedObject<cCounted> c;
  c = b;
  EXPECT_EQ(3u, c.refCount());
  EXPECT_TRUE(a == c);
  c.invalidateObject();
  EXPECT_EQ(0, gAlive);
  for (const tSharedObject<cCounted>* h : {&a, &b, &c}) {
    EXPECT_TRUE(h->null());
    EXPECT_EQ(0u, h->refCount());
    EXPECT_EQ(nullptr, h->get());
    try {
      **h;
      ADD_FAILURE();
    } catch (const qstd::cBugException& e) {
      qstd::cAsciiString text;
      e.liMessage()->untranslated(text);
      EXPECT_STREQ("Invalid shared object dereference!", text.c_str());
    }
  }
  tSharedObject<cCounted> later(a);
  EXPECT_TRUE(later.null());
  EXPECT_EQ(4u, a.sharedData()->handles());
  c.invalidateObject();  // a second time: nothing left to end

  // A handle of the base type frees the object as created.
  tSharedObject<cDerived> derived(new cDerived);
  tSharedObject<cCounted> asBase(derived);
  derived = tSharedObject<cDerived>();
  EXPECT_EQ(1, gAlive);
  EXPECT_EQ(7, asBase.dynamicCast<cDerived>()->miValue);
  asBase.reset();
  EXPECT_EQ(0, gAlive);

  tSharedObject<cCounted> fromAuto(makeCounted());
  EXPECT_TRUE(fromAuto.unique());
}

namespace {

tSharedObject<cCounted>* gHandle = nullptr;

// Takes and drops a handle to its own shared data while it is deleted.
struct cReentrant : cCounted {
  ~cReentrant() override {
    if (gHandle != nullptr) {
      tSharedObject<cCounted> copy(*gHandle);
      EXPECT_TRUE(copy.null());
    }
  }
};

}  // namespace

TEST_F(PointerTest, ObjectDestructorMayDropHandlesToItsOwnData) {
  {
    tSharedObject<cCounted> last(new cReentrant);
    gHandle = &last;
  }  // the last handle goes; the copy in the destructor must not free the data
  gHandle = nullptr;
  EXPECT_EQ(0, gAlive);

  tSharedObject<cCounted> one(new cReentrant);
  tSharedObject<cCounted> two(one);
  gHandle = &two;
  one.invalidateObject();
  gHandle = nullptr;
  EXPECT_EQ(2u, one.sharedData()->handles());
  EXPECT_TRUE(two.null());
}
