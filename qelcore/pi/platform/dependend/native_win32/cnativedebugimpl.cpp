#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <cstdio>
#include <windows.h>

namespace qpi {

unsigned int cNativeDebugImpl::captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip) {
  void* raw[62];  // the capture call takes at most 62 frames on older systems
  if (max > 62) max = 62;
  USHORT got = ::RtlCaptureStackBackTrace(static_cast<DWORD>(skip + 1), static_cast<DWORD>(max), raw, nullptr);
  // Some implementations report the outermost frames as null addresses.
  unsigned int n = 0;
  while (n < got && raw[n] != nullptr) {
    frames[n] = reinterpret_cast<std::uintptr_t>(raw[n]);
    ++n;
  }
  return n;
}

void cNativeDebugImpl::describeAddress(std::uintptr_t address, std::string& out) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "0x%llx", static_cast<unsigned long long>(address));
  out += buf;
  HMODULE module = nullptr;
  if (!::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCSTR>(address), &module))
    return;
  char path[MAX_PATH];
  DWORD len = ::GetModuleFileNameA(module, path, MAX_PATH);
  if (len == 0) return;
  const char* name = path;
  for (DWORD i = 0; i < len; ++i)
    if (path[i] == '\\' || path[i] == '/') name = path + i + 1;
  std::snprintf(buf, sizeof buf, "+0x%llx",
                static_cast<unsigned long long>(address - reinterpret_cast<std::uintptr_t>(module)));
  out += " (";
  out += name;
  out += buf;
  out += ')';
}

void cNativeDebugImpl::writeStdErr(const char* text, std::size_t length) {
  std::fwrite(text, 1, length, stderr);
  std::fflush(stderr);
}

}  // namespace qpi
