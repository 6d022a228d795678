// Live bytes from the global operator new, for the benchmarks that report
// what an idle object holds. The replacement functions below are defined
// here, not inline: include this header in exactly one source of a program
// (every bench/<name>.cpp is a program of its own).
#ifndef QELCORE_BENCH_LIVEBYTES_H
#define QELCORE_BENCH_LIVEBYTES_H

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace qelbench {
inline std::atomic<long long>& liveBytesCounter() {
  static std::atomic<long long> counter(0);
  return counter;
}
/// Bytes handed out by operator new and not yet deleted.
inline long long liveBytes() { return liveBytesCounter().load(); }
}  // namespace qelbench

void* operator new(std::size_t size) {
  std::size_t* p = static_cast<std::size_t*>(std::malloc(size + sizeof(std::max_align_t)));
  if (!p) throw std::bad_alloc();
  *p = size;
  qelbench::liveBytesCounter() += static_cast<long long>(size);
  return reinterpret_cast<char*>(p) + sizeof(std::max_align_t);
}
void operator delete(void* ptr) noexcept {
  if (!ptr) return;
  std::size_t* p = reinterpret_cast<std::size_t*>(static_cast<char*>(ptr) - sizeof(std::max_align_t));
  qelbench::liveBytesCounter() -= static_cast<long long>(*p);
  std::free(p);
}
void operator delete(void* ptr, std::size_t) noexcept { operator delete(ptr); }
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* ptr) noexcept { operator delete(ptr); }
void operator delete[](void* ptr, std::size_t) noexcept { operator delete(ptr); }

#endif
