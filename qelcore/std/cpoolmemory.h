/// \class qstd::cPoolMemory
/// The memory behind array pools (tArray and the strings built on it): the C
/// allocator, reached through the library so that the array header does not
/// carry `<cstdlib>` into every file that uses a string.
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
};

}  // namespace qstd

#endif
