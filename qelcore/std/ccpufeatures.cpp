#include "qelcore/std/ccpufeatures.h"

#include <atomic>

namespace qstd {

namespace {

std::atomic<bool> gVectorUnitsEnabled(true);

bool processorHasAvx2() {
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
  static const bool yes = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") != 0;
  }();
  return yes;
#else
  return false;
#endif
}

}  // namespace

bool cCpuFeatures::avx2() { return processorHasAvx2() && gVectorUnitsEnabled.load(std::memory_order_relaxed); }

void cCpuFeatures::setVectorUnitsEnabled(bool enabled) {
  gVectorUnitsEnabled.store(enabled, std::memory_order_relaxed);
}

bool cCpuFeatures::vectorUnitsEnabled() { return gVectorUnitsEnabled.load(std::memory_order_relaxed); }

}  // namespace qstd
