// The small-block cache behind works, slot calls and list nodes.
#include "qelcore/std/cpoolmemory.h"
#include "qelcore/std/tpoolallocator.h"

#include <cstring>
#include <list>
#include <thread>

#include <gtest/gtest.h>

using qstd::cPoolMemory;

TEST(PoolMemory, ABlockGivenBackServesTheNextRequestOfItsSizeOnly) {
  void* a = cPoolMemory::allocateSmall(40);
  std::memset(a, 0xAB, 40);
  cPoolMemory::releaseSmall(a, 40);
  // Another size does not take it; the same size class does.
  void* other = cPoolMemory::allocateSmall(100);
  EXPECT_NE(other, a);
  void* b = cPoolMemory::allocateSmall(48);
  EXPECT_EQ(b, a);
  cPoolMemory::releaseSmall(b, 48);
  cPoolMemory::releaseSmall(other, 100);
  cPoolMemory::releaseSmall(nullptr, 16);

  // Beyond the cached sizes every block is the allocator's own.
  void* big = cPoolMemory::allocateSmall(4096);
  std::memset(big, 1, 4096);
  cPoolMemory::releaseSmall(big, 4096);
}

TEST(PoolMemory, BlocksMoveBetweenThreadsAndGoBackWhenAThreadEnds) {
  // Allocated here, released on another thread: the other thread keeps them
  // until it ends, and gives them back then (the leak checker would see
  // them otherwise).
  void* blocks[300];
  for (void*& b : blocks) b = cPoolMemory::allocateSmall(24);
  std::thread([&blocks] {
    for (void* b : blocks) cPoolMemory::releaseSmall(b, 24);
    void* again = cPoolMemory::allocateSmall(24);
    bool reused = false;
    for (void* b : blocks) reused = reused || b == again;
    EXPECT_TRUE(reused);
    cPoolMemory::releaseSmall(again, 24);
  }).join();

  // A node container on the cache behaves as with the standard allocator.
  std::list<int, qstd::tPoolAllocator<int>> values;
  for (int i = 0; i < 1000; ++i) values.push_back(i);
  values.remove_if([](int v) { return v % 2 != 0; });
  EXPECT_EQ(values.size(), 500u);
  EXPECT_EQ(values.back(), 998);
}
