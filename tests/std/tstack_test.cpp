#include "qelcore/std/tstack.h"

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

TEST(tStack, PopsInReverseAndRefusesWhenEmpty) {
  qstd::tStack<int> s;
  s.push(1);
  s.push(2);
  EXPECT_EQ(1, s.at(1));
  EXPECT_EQ(2, s.pop());
  EXPECT_EQ(1, s.top());
  s.pop();
  EXPECT_THROW(s.pop(), qstd::cBugException);
}
