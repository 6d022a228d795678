#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <unistd.h>
#include <unwind.h>

namespace qpi {

namespace {

struct cUnwindState {
  std::uintptr_t* frames;
  unsigned int max;
  unsigned int skip;
  unsigned int count;
};

_Unwind_Reason_Code collectFrame(struct _Unwind_Context* context, void* arg) {
  cUnwindState* state = static_cast<cUnwindState*>(arg);
  std::uintptr_t ip = _Unwind_GetIP(context);
  if (ip == 0) return _URC_END_OF_STACK;
  if (state->skip > 0) {
    --state->skip;
    return _URC_NO_REASON;
  }
  if (state->count >= state->max) return _URC_END_OF_STACK;
  state->frames[state->count++] = ip;
  return _URC_NO_REASON;
}

}  // namespace

// The unwinder of the compiler's runtime rather than execinfo's backtrace():
// sanitizers intercept the latter and add frames of their own.
unsigned int cNativeDebugImpl::captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip) {
  // The first frame the unwinder reports is this function itself.
  cUnwindState state{frames, max, skip + 1, 0};
  _Unwind_Backtrace(collectFrame, &state);
  return state.count;
}

void cNativeDebugImpl::describeAddress(std::uintptr_t address, std::string& out) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "0x%llx", static_cast<unsigned long long>(address));
  out += buf;
  Dl_info info;
  // The return address points behind the call; look up the call itself.
  if (address == 0 || ::dladdr(reinterpret_cast<void*>(address - 1), &info) == 0) return;
  if (info.dli_sname) {
    int status = 0;
    char* demangled = abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, &status);
    out += ' ';
    out += (status == 0 && demangled) ? demangled : info.dli_sname;
    std::free(demangled);
    std::snprintf(buf, sizeof buf, "+0x%llx",
                  static_cast<unsigned long long>(address - reinterpret_cast<std::uintptr_t>(info.dli_saddr)));
    out += buf;
  }
  if (info.dli_fname) {
    out += " (";
    out += info.dli_fname;
    out += ')';
  }
}

void cNativeDebugImpl::writeStdErr(const char* text, std::size_t length) {
  while (length > 0) {
    ssize_t n = ::write(2, text, length);
    if (n <= 0) return;
    text += n;
    length -= static_cast<std::size_t>(n);
  }
}

}  // namespace qpi
