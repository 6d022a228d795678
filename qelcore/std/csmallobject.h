/// \file
/// qstd::cSmallObject: class-level new and delete over the small-block cache.
///
/// \code
///   class cNode : public qstd::cSmallObject { ... };
///   cNode* n = new cNode;   // from the calling thread's cache
///   delete n;               // back to the cache
/// \endcode
#ifndef QELCORE_STD_CSMALLOBJECT_H
#define QELCORE_STD_CSMALLOBJECT_H

#include <cstddef>
#include <new>

#include "qelcore/std/cpoolmemory.h"

namespace qstd {

/// Base of classes whose objects come and go at a high rate (works, slot
/// calls, shared-object records): `new` takes them from the thread's cache
/// of small blocks, `delete` gives them back. Over-aligned derived classes
/// and placement new use the global forms.
class cSmallObject {
public:
  /// A block from the thread's cache.
  static void* operator new(std::size_t bytes) { return detail::allocateSmall(bytes); }
  /// Gives the block back to the cache.
  static void operator delete(void* p, std::size_t bytes) noexcept { detail::releaseSmall(p, bytes); }
  /// Over-aligned classes: the global form.
  static void* operator new(std::size_t bytes, std::align_val_t align) { return ::operator new(bytes, align); }
  /// Over-aligned classes: the global form.
  static void operator delete(void* p, std::size_t, std::align_val_t align) noexcept { ::operator delete(p, align); }
  /// Placement new: constructs at `where`.
  static void* operator new(std::size_t, void* where) noexcept { return where; }
  /// Placement delete: nothing to give back.
  static void operator delete(void*, void*) noexcept {}
};

}  // namespace qstd

#endif
