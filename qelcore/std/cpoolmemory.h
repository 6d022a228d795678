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

}  // namespace qstd

#endif
