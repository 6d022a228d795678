// Helpers shared by the benchmarks.
#ifndef QELCORE_BENCH_BENCHUTIL_H
#define QELCORE_BENCH_BENCHUTIL_H

#include <cstddef>
#include <cstring>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace qelbench {

// Fresh megabytes cost a page fault per page on first touch, which would
// dominate the figures. Keep freed memory in the process and touch a block of
// the given size once, so that loops measure the code and not the kernel.
inline void warmMemory(std::size_t bytes) {
#if defined(__GLIBC__)
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_TOP_PAD, 64 << 20);
#endif
  std::vector<char> block(bytes);
  std::memset(block.data(), 1, block.size());
}

}  // namespace qelbench

#endif
