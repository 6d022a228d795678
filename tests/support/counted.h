// Objects that count how many of them are alive, for the ownership tests: a
// test fixture checks that every one of them is gone when the test ends.
#ifndef QELCORE_TESTS_SUPPORT_COUNTED_H
#define QELCORE_TESTS_SUPPORT_COUNTED_H

#include <gtest/gtest.h>

#include "qelcore/std/tautoptr.h"

namespace qeltest {

inline int& alive() {
  static int count = 0;
  return count;
}

struct cCounted {
  cCounted() { ++alive(); }
  virtual ~cCounted() { --alive(); }
};

struct cDerived : cCounted {
  int miValue = 7;
};

inline qstd::tAutoPtr<cCounted> makeCounted() { return qstd::tAutoPtr<cCounted>(new cDerived); }

class cCountedTest : public ::testing::Test {
protected:
  void SetUp() override { alive() = 0; }
  void TearDown() override { EXPECT_EQ(0, alive()); }
};

}  // namespace qeltest

#endif
