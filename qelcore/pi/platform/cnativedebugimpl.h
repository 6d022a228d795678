// Platform services of the debug output: stack capture, symbol lookup and the
// raw standard error stream. One implementation per platform directory.
#ifndef QELCORE_PI_PLATFORM_CNATIVEDEBUGIMPL_H
#define QELCORE_PI_PLATFORM_CNATIVEDEBUGIMPL_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace qpi {

class cNativeDebugImpl {
public:
  // Innermost first; `skip` frames above the caller of this function are dropped.
  static unsigned int captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip);
  // Appends a readable form of one return address: module, symbol and offset
  // where the platform can tell them, the bare address otherwise.
  static void describeAddress(std::uintptr_t address, std::string& out);
  // Writes the bytes to the standard error stream in one piece.
  static void writeStdErr(const char* text, std::size_t length);
};

}  // namespace qpi

#endif
