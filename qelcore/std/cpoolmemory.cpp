#include "qelcore/std/cpoolmemory.h"

#include <cstdlib>

#include "qelcore/qelinline.h"

#if defined(__SANITIZE_ADDRESS__)
#define QEL_POOL_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QEL_POOL_ASAN 1
#endif
#endif
#if defined(QEL_POOL_ASAN)
#include <sanitizer/asan_interface.h>
// A cached block is poisoned past its link: a use after release is still
// reported, and the leak checker (which skips poisoned words) still follows
// the free list from the thread's cache, so cached blocks are not leaks.
#define QEL_POOL_POISON(p, n) \
  ASAN_POISON_MEMORY_REGION(static_cast<char*>(static_cast<void*>(p)) + sizeof(void*), (n) - sizeof(void*))
#define QEL_POOL_UNPOISON(p, n) \
  ASAN_UNPOISON_MEMORY_REGION(static_cast<char*>(static_cast<void*>(p)) + sizeof(void*), (n) - sizeof(void*))
#else
#define QEL_POOL_POISON(p, n) ((void)(p), (void)(n))
#define QEL_POOL_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace qstd {

#if defined(QEL_POOL_INLINE_CACHE)
__attribute__((tls_model("initial-exec"))) __thread detail::cPoolCache detail::tPoolCache;
#endif

void* cPoolMemory::resize(void* block, std::size_t bytes) { return std::realloc(block, bytes); }

void cPoolMemory::release(void* block) { std::free(block); }

namespace {

// Sizes in steps of 16 bytes (which keeps operator new's alignment), up to
// 640 bytes (a work and its shared record fit); a thread keeps at most
// kMaxCached blocks of each.
constexpr std::size_t kStep = 16;
constexpr std::size_t kClasses = 40;
constexpr unsigned int kMaxCached = 256;

typedef detail::cPoolCache cCache;
typedef detail::cPoolCache::cFreeBlock cFreeBlock;
static_assert(cCache::kStep == kStep && cCache::kClasses == kClasses, "one cache layout");

#if !defined(QEL_POOL_INLINE_CACHE)
// Reached only from this file.
#if defined(__ELF__) && (defined(__GNUC__) || defined(__clang__))
__attribute__((tls_model("initial-exec")))
#endif
thread_local cCache tPoolCache;
#endif

// The cache of the calling thread; cFlush empties it when the thread ends.
inline cCache& threadCache() {
#if defined(QEL_POOL_INLINE_CACHE)
  return detail::tPoolCache;
#else
  return tPoolCache;
#endif
}

std::size_t classOf(std::size_t bytes) { return bytes == 0 ? 0 : (bytes - 1) / kStep; }
std::size_t blockSize(std::size_t cls) { return (cls + 1) * kStep; }

void push(cCache& cache, void* block, std::size_t cls) {
  cFreeBlock* free = static_cast<cFreeBlock*>(block);
  free->mpNext = cache.mpHead[cls];
  cache.mpHead[cls] = free;
  --cache.miRoom[cls];
  QEL_POOL_POISON(block, blockSize(cls));
}

struct cFlush {
  ~cFlush() {
    cCache& cache = threadCache();
    cache.mbClosed = true;
    for (std::size_t cls = 0; cls < kClasses; ++cls) {
      cFreeBlock* block = cache.mpHead[cls];
      while (block) {
        QEL_POOL_UNPOISON(block, blockSize(cls));
        cFreeBlock* next = block->mpNext;
        ::operator delete(block);
        block = next;
      }
      cache.mpHead[cls] = nullptr;
      cache.miRoom[cls] = 0;
    }
  }
};

// The first release of a thread: arranges for the cache to be emptied when
// the thread ends, then opens it. Kept out of line, so that the common path
// stays a handful of instructions.
QEL_NOINLINE void releaseSlow(cCache& cache, void* block, std::size_t cls) noexcept {
  if (cls >= kClasses || cache.mbOpen || cache.mbClosed) {
    ::operator delete(block);
    return;
  }
  try {
    static thread_local cFlush flush;
    (void)flush;
  } catch (...) {
    ::operator delete(block);
    return;
  }
  for (unsigned int& room : cache.miRoom) room = kMaxCached;
  cache.mbOpen = true;
  push(cache, block, cls);
}

}  // namespace

void* cPoolMemory::allocateSmall(std::size_t bytes) {
  const std::size_t cls = classOf(bytes);
  if (cls >= kClasses) return ::operator new(bytes);
  cCache& cache = threadCache();
  if (cFreeBlock* block = cache.mpHead[cls]) {
    QEL_POOL_UNPOISON(block, blockSize(cls));
    cache.mpHead[cls] = block->mpNext;
    ++cache.miRoom[cls];
    return block;
  }
  return ::operator new(blockSize(cls));
}

void cPoolMemory::releaseSmall(void* block, std::size_t bytes) noexcept {
  if (!block) return;
  const std::size_t cls = classOf(bytes);
  cCache& cache = threadCache();
  if (cls < kClasses && cache.miRoom[cls] != 0)
    push(cache, block, cls);
  else
    releaseSlow(cache, block, cls);
}

}  // namespace qstd
