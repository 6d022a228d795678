#include "qelcore/std/cpoolmemory.h"

#include <cstdlib>

namespace qstd {

void* cPoolMemory::resize(void* block, std::size_t bytes) { return std::realloc(block, bytes); }

void cPoolMemory::release(void* block) { std::free(block); }

}  // namespace qstd
