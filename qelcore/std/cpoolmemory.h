// The memory behind array pools (tArray and the strings built on it): the C
// allocator, reached through the library so that the array header does not
// carry <cstdlib> into every file that uses a string.
//
// Small blocks for objects that come and go at a high rate (works, their
// shared-object records, slot calls, list nodes) are recycled through a
// cache of the calling thread instead:
//
//   void* p = qstd::cPoolMemory::allocateSmall(sizeof(cNode));
//   ...
//   qstd::cPoolMemory::releaseSmall(p, sizeof(cNode));   // the same size again
//
// A block may be released on another thread than the one that allocated it;
// it then serves that thread. Each thread keeps at most a few hundred blocks
// of each size and hands the rest back to the C++ allocator, and everything
// it keeps goes back when the thread ends.
#ifndef QELCORE_STD_CPOOLMEMORY_H
#define QELCORE_STD_CPOOLMEMORY_H

#include <cstddef>
#include <new>

#include "qelcore/qelexport.h"

namespace qstd {

class QEL_EXPORT cPoolMemory {
public:
  // As realloc(): a block of `bytes` that keeps the content of `block` up
  // to the smaller size (a new block when `block` is null); null, with
  // `block` untouched, when there is no memory.
  static void* resize(void* block, std::size_t bytes);
  // As free(); null is allowed.
  static void release(void* block);

  /// A block of at least `bytes` bytes, aligned as operator new aligns;
  /// std::bad_alloc when there is no memory. Blocks of up to 512 bytes come
  /// from the calling thread's cache.
  static void* allocateSmall(std::size_t bytes);
  /// Gives back a block of allocateSmall(); `bytes` is the size it was asked
  /// for. Null is allowed.
  static void releaseSmall(void* block, std::size_t bytes) noexcept;
};

/// Base of classes whose objects come and go at a high rate (works, slot
/// calls, shared-object records): `new` takes them from the thread's cache
/// of small blocks, `delete` gives them back. Over-aligned derived classes
/// and placement new use the global forms.
class cSmallObject {
public:
  static void* operator new(std::size_t bytes) { return cPoolMemory::allocateSmall(bytes); }
  static void operator delete(void* p, std::size_t bytes) noexcept { cPoolMemory::releaseSmall(p, bytes); }
  static void* operator new(std::size_t bytes, std::align_val_t align) { return ::operator new(bytes, align); }
  static void operator delete(void* p, std::size_t, std::align_val_t align) noexcept { ::operator delete(p, align); }
  static void* operator new(std::size_t, void* where) noexcept { return where; }
  static void operator delete(void*, void*) noexcept {}
};

/// A standard allocator over cPoolMemory's small blocks, for node-based
/// containers (one node per allocation); larger requests go to operator new.
template <class T>
class tPoolAllocator {
public:
  typedef T value_type;

  tPoolAllocator() noexcept {}
  template <class U>
  tPoolAllocator(const tPoolAllocator<U>&) noexcept {}

  T* allocate(std::size_t n) {
    if (n == 1 && alignof(T) <= alignof(std::max_align_t))
      return static_cast<T*>(cPoolMemory::allocateSmall(sizeof(T)));
    return static_cast<T*>(::operator new(n * sizeof(T)));
  }
  void deallocate(T* p, std::size_t n) noexcept {
    if (n == 1 && alignof(T) <= alignof(std::max_align_t))
      cPoolMemory::releaseSmall(p, sizeof(T));
    else
      ::operator delete(p);
  }

  template <class U>
  bool operator==(const tPoolAllocator<U>&) const noexcept {
    return true;
  }
  template <class U>
  bool operator!=(const tPoolAllocator<U>&) const noexcept {
    return false;
  }
};

}  // namespace qstd

#endif
