#include "qelcore/std/tsmallvector.h"

#include <vector>

#include <gtest/gtest.h>

using qstd::tSmallVector;

namespace {

template <unsigned int N>
std::vector<int> values(const tSmallVector<int, N>& v) {
  return std::vector<int>(v.begin(), v.end());
}

}  // namespace

TEST(SmallVector, GrowsOutOfItsInlineRoomAndErasesInPlace) {
  tSmallVector<int, 1> v;
  EXPECT_EQ(v.capacity(), 1u);
  v.push_back(1);
  EXPECT_EQ(v.capacity(), 1u);  // still inside the object
  for (int i = 2; i <= 5; ++i) v.push_back(i);
  EXPECT_EQ(values(v), (std::vector<int>{1, 2, 3, 4, 5}));
  v.push_back(v[0]);  // an element of the vector itself, while it may move
  EXPECT_EQ(v.back(), 1);
  v.erase(v.begin() + 1);
  v.erase(v.begin() + 2, v.end() - 1);
  EXPECT_EQ(values(v), (std::vector<int>{1, 3, 1}));

  tSmallVector<int, 1> copy(v);
  v.clear();
  EXPECT_TRUE(v.empty());
  EXPECT_EQ(values(copy), (std::vector<int>{1, 3, 1}));
}

TEST(SmallVector, SwapsInlineAndHeapContentsEitherWay) {
  tSmallVector<int, 2> small, large, other;
  small.push_back(7);
  for (int i = 0; i < 10; ++i) large.push_back(i);
  small.swap(large);
  EXPECT_EQ(small.size(), 10u);
  EXPECT_EQ(values(large), (std::vector<int>{7}));
  large.push_back(8);
  large.push_back(9);  // now on the heap as well
  small.swap(large);
  EXPECT_EQ(values(small), (std::vector<int>{7, 8, 9}));
  EXPECT_EQ(large.size(), 10u);
  other.swap(small);
  EXPECT_TRUE(small.empty());
  EXPECT_EQ(values(other), (std::vector<int>{7, 8, 9}));
  small = other;
  EXPECT_EQ(values(small), (std::vector<int>{7, 8, 9}));
}
