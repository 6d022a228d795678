#include "qelcore/std/tsharedobject.h"

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/climessage.h"

#include "support/counted.h"

using qeltest::alive;
using qeltest::cCounted;
using qeltest::cDerived;
using qeltest::makeCounted;
using qstd::tSharedObject;

typedef qeltest::cCountedTest tSharedObjectTest;

TEST_F(tSharedObjectTest, SharedObjectCountsOwnsAndInvalidates) {
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
  EXPECT_EQ(0, alive());

  tSharedObject<cCounted> a(new cDerived);
  tSharedObject<cCounted> b(a);
  tSharedObject<cCounted> c;
  c = b;
  EXPECT_EQ(3u, c.refCount());
  EXPECT_TRUE(a == c);
  c.invalidateObject();
  EXPECT_EQ(0, alive());
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
  EXPECT_EQ(1, alive());
  EXPECT_EQ(7, asBase.dynamicCast<cDerived>()->miValue);
  asBase.reset();
  EXPECT_EQ(0, alive());

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

TEST_F(tSharedObjectTest, ObjectDestructorMayDropHandlesToItsOwnData) {
  {
    tSharedObject<cCounted> last(new cReentrant);
    gHandle = &last;
  }  // the last handle goes; the copy in the destructor must not free the data
  gHandle = nullptr;
  EXPECT_EQ(0, alive());

  tSharedObject<cCounted> one(new cReentrant);
  tSharedObject<cCounted> two(one);
  gHandle = &two;
  one.invalidateObject();
  gHandle = nullptr;
  EXPECT_EQ(2u, one.sharedData()->handles());
  EXPECT_TRUE(two.null());
}

namespace {

// Reached through a virtual base, so converting a pointer reads the object.
struct cJoined : virtual cCounted {
  int miJoined = 3;
};

}  // namespace

TEST_F(tSharedObjectTest, ConversionsOfAnInvalidatedObjectAreNull) {
  tSharedObject<cJoined> joined(new cJoined);
  tSharedObject<cCounted> asBase(joined);
  EXPECT_EQ(3, asBase.dynamicCast<cJoined>()->miJoined);
  joined.invalidateObject();
  EXPECT_EQ(0, alive());

  tSharedObject<cCounted> converted(joined);
  EXPECT_TRUE(converted.null());
  EXPECT_EQ(nullptr, converted.get());
  EXPECT_EQ(joined.sharedData(), converted.sharedData());
  EXPECT_TRUE(joined.staticCast<cCounted>().null());
  EXPECT_TRUE(joined.dynamicCast<cCounted>().null());
  EXPECT_TRUE(asBase.dynamicCast<cJoined>().null());
  EXPECT_TRUE(asBase.dynamicCast<cDerived>().null());
}

namespace {

struct cRefusing : cCounted {
  explicit cRefusing(bool refuse) {
    if (refuse) throw 1;
  }
};

}  // namespace

TEST_F(tSharedObjectTest, CreatedObjectsShareTheirBlockWithTheRecord) {
  tSharedObject<cDerived> made = tSharedObject<cDerived>::create();
  EXPECT_EQ(1, alive());
  EXPECT_EQ(7, made->miValue);
  {
    tSharedObject<cCounted> asBase(made);
    EXPECT_EQ(2u, made.refCount());
  }
  EXPECT_TRUE(made.unique());

  // Invalidated, the object goes at once; the record (and its block) stays
  // until the last handle.
  tSharedObject<cDerived> other(made);
  made.invalidateObject();
  EXPECT_EQ(0, alive());
  EXPECT_TRUE(other.null());
  EXPECT_EQ(2u, other.sharedData()->handles());
  made = tSharedObject<cDerived>();
  other = tSharedObject<cDerived>();

  // A constructor that throws leaves nothing behind.
  EXPECT_THROW(tSharedObject<cRefusing>::create(true), int);
  EXPECT_EQ(0, alive());
  EXPECT_FALSE(tSharedObject<cRefusing>::create(false).null());
}
