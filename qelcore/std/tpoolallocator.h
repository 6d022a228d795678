/// \file
/// qstd::tPoolAllocator: a standard allocator over the small-block cache.
///
/// \code
///   std::list<cEntry, qstd::tPoolAllocator<cEntry>> entries;
/// \endcode
#ifndef QELCORE_STD_TPOOLALLOCATOR_H
#define QELCORE_STD_TPOOLALLOCATOR_H

#include <cstddef>
#include <new>

#include "qelcore/std/cpoolmemory.h"

namespace qstd {

/// A standard allocator over cPoolMemory's small blocks, for node-based
/// containers (one node per allocation); larger requests go to operator new.
template <class T>
class tPoolAllocator {
public:
  /// The element type.
  typedef T value_type;

  /// Stateless: every allocator of this kind is equal to every other.
  tPoolAllocator() noexcept {}
  /// Rebinding copy.
  template <class U>
  tPoolAllocator(const tPoolAllocator<U>&) noexcept {}

  /// Room for `n` objects; a single one comes from the cache.
  T* allocate(std::size_t n) {
    if (n == 1 && alignof(T) <= alignof(std::max_align_t))
      return static_cast<T*>(detail::allocateSmall(sizeof(T)));
    return static_cast<T*>(::operator new(n * sizeof(T)));
  }
  /// Gives back what allocate(n) returned.
  void deallocate(T* p, std::size_t n) noexcept {
    if (n == 1 && alignof(T) <= alignof(std::max_align_t))
      detail::releaseSmall(p, sizeof(T));
    else
      ::operator delete(p);
  }

  /// Always true: blocks of one allocator may go back through another.
  template <class U>
  bool operator==(const tPoolAllocator<U>&) const noexcept {
    return true;
  }
  /// Always false.
  template <class U>
  bool operator!=(const tPoolAllocator<U>&) const noexcept {
    return false;
  }
};

}  // namespace qstd

#endif
