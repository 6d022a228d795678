#include "qelcore/std/tsimplevector.h"

#include <algorithm>

#include <gtest/gtest.h>

using qstd::tSimpleVector;

TEST(tSimpleVector, GrowsAndShrinksLikeAVector) {
  int a = 1, b = 2, c = 3, d = 4;
  tSimpleVector<int*> v{&a, &b};
  v.push_back(&c);
  v.insert(v.begin() + 1, &d);
  ASSERT_EQ(v.size(), 4u);
  EXPECT_EQ(v[0], &a);
  EXPECT_EQ(v[1], &d);
  EXPECT_EQ(v.back(), &c);

  // Erasing through the standard algorithms.
  v.erase(std::remove(v.begin(), v.end(), &d), v.end());
  EXPECT_EQ(v, (tSimpleVector<int*>{&a, &b, &c}));
  EXPECT_EQ(v.erase(v.begin()), v.begin());
  v.pop_back();
  EXPECT_EQ(v, (tSimpleVector<int*>{&b}));
  EXPECT_NE(v, (tSimpleVector<int*>{&a}));

  // Copies are independent; swap exchanges.
  tSimpleVector<int*> copy(v);
  copy.push_back(&a);
  EXPECT_EQ(v.size(), 1u);
  v.swap(copy);
  EXPECT_EQ(v.size(), 2u);
  copy = v;
  EXPECT_EQ(copy, v);
}

TEST(tSimpleVector, ReservedRoomIsKeptSoThatAppendingCannotReallocate) {
  tSimpleVector<unsigned int> v;
  v.reserve(100);
  const std::size_t capacity = v.capacity();
  ASSERT_GE(capacity, 100u);
  EXPECT_TRUE(v.empty());
  const unsigned int* pool = nullptr;
  for (unsigned int i = 0; i < 100; ++i) {
    v.push_back(i);
    if (i == 0) pool = v.data();
  }
  EXPECT_EQ(v.data(), pool);
  v.erase(v.begin() + 10, v.end());
  v.clear();
  EXPECT_EQ(v.capacity(), capacity);
  v.push_back(7);
  EXPECT_EQ(v.data(), pool);
}
