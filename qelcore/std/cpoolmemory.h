/// \class qstd::cPoolMemory
/// The memory behind array pools (tArray and the strings built on it): the C
/// allocator, reached through the library so that the array header does not
/// carry `<cstdlib>` into every file that uses a string.
///
/// Small blocks for objects that come and go at a high rate (works, their
/// shared-object records, slot calls, list nodes) are recycled through a
/// cache of the calling thread instead:
///
/// \code
///   void* p = qstd::cPoolMemory::allocateSmall(sizeof(cNode));
///   ...
///   qstd::cPoolMemory::releaseSmall(p, sizeof(cNode));   // the same size again
/// \endcode
///
/// A block may be released on another thread than the one that allocated it;
/// it then serves that thread. Each thread keeps at most a few hundred blocks
/// of each size and hands the rest back to the C++ allocator, and everything
/// it keeps goes back when the thread ends. Classes reach the cache through
/// qstd::cSmallObject (csmallobject.h), node containers through
/// qstd::tPoolAllocator (tpoolallocator.h).
#ifndef QELCORE_STD_CPOOLMEMORY_H
#define QELCORE_STD_CPOOLMEMORY_H

#include <cstddef>

#include "qelcore/qelexport.h"

namespace qstd {

class QEL_EXPORT cPoolMemory {
public:
  /// As realloc(): a block of `bytes` that keeps the content of `block` up
  /// to the smaller size (a new block when `block` is null); null, with
  /// `block` untouched, when there is no memory.
  static void* resize(void* block, std::size_t bytes);
  /// As free(); null is allowed.
  static void release(void* block);

  /// A block of at least `bytes` bytes, aligned as operator new aligns;
  /// std::bad_alloc when there is no memory. Blocks of up to 640 bytes come
  /// from the calling thread's cache.
  static void* allocateSmall(std::size_t bytes);
  /// Gives back a block of allocateSmall(); `bytes` is the size it was asked
  /// for. Null is allowed.
  static void releaseSmall(void* block, std::size_t bytes) noexcept;
};

namespace detail {

// The calling thread's cache of small blocks: free lists in steps of 16
// bytes (which keeps operator new's alignment) up to 640 bytes, and how many
// more blocks of each size it takes (0 until the thread's first release sets
// it up, and again once the thread ends). Zero-initialised and trivially
// destructible, so that reaching it costs no initialisation check.
struct cPoolCache {
  static constexpr std::size_t kStep = 16;
  static constexpr std::size_t kClasses = 40;
  struct cFreeBlock {
    cFreeBlock* mpNext;
  };
  cFreeBlock* mpHead[kClasses];
  unsigned int miRoom[kClasses];
  bool mbOpen;
  bool mbClosed;
};

// The library's own hot paths (shared-object records, list nodes, slot calls)
// take and give back cached blocks inline; only a miss calls cPoolMemory.
// Where the cache cannot be reached from outside its file (other platforms,
// builds of users, memory checkers that watch the cache) they simply call.
#if defined(QELCORE_BUILDING_LIBRARY) && defined(__ELF__) && (defined(__GNUC__) || defined(__clang__)) && \
    !defined(__SANITIZE_ADDRESS__)
#define QEL_POOL_INLINE_CACHE 1
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#undef QEL_POOL_INLINE_CACHE
#endif
#endif
#endif

#if defined(QEL_POOL_INLINE_CACHE)
// The initial-exec model reaches the cache without a call; the cache is
// small enough for the static TLS space even when the library is loaded late.
extern __thread cPoolCache tPoolCache __attribute__((tls_model("initial-exec"), visibility("hidden")));

inline void* allocateSmall(std::size_t bytes) {
  // 0 bytes wraps round to a large class and takes the call.
  const std::size_t cls = (bytes - 1) / cPoolCache::kStep;
  if (cls < cPoolCache::kClasses) {
    cPoolCache& cache = tPoolCache;
    if (cPoolCache::cFreeBlock* block = cache.mpHead[cls]) {
      cache.mpHead[cls] = block->mpNext;
      ++cache.miRoom[cls];
      return block;
    }
  }
  return cPoolMemory::allocateSmall(bytes);
}
inline void releaseSmall(void* block, std::size_t bytes) noexcept {
  const std::size_t cls = (bytes - 1) / cPoolCache::kStep;
  if (block && cls < cPoolCache::kClasses) {
    cPoolCache& cache = tPoolCache;
    if (cache.miRoom[cls] != 0) {
      cPoolCache::cFreeBlock* free = static_cast<cPoolCache::cFreeBlock*>(block);
      free->mpNext = cache.mpHead[cls];
      cache.mpHead[cls] = free;
      --cache.miRoom[cls];
      return;
    }
  }
  cPoolMemory::releaseSmall(block, bytes);
}
#else
inline void* allocateSmall(std::size_t bytes) { return cPoolMemory::allocateSmall(bytes); }
inline void releaseSmall(void* block, std::size_t bytes) noexcept { cPoolMemory::releaseSmall(block, bytes); }
#endif

}  // namespace detail

}  // namespace qstd

#endif
