// Size of the differential corpora: the tests that compare a fast path with
// a plain reference over many generated values run all of them in an
// optimised build and a twentieth under sanitizers or without optimisation,
// where each value costs many times as much. QELCORE_FULL_CORPUS=1 in the
// environment runs the whole corpus in any build.
#ifndef QELCORE_TESTS_SUPPORT_CORPUS_H
#define QELCORE_TESTS_SUPPORT_CORPUS_H

#include <cstdlib>
#include <cstring>

namespace qeltest {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(NDEBUG)
const unsigned int CorpusDivisor = 20;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
const unsigned int CorpusDivisor = 20;
#else
const unsigned int CorpusDivisor = 1;
#endif
#else
const unsigned int CorpusDivisor = 1;
#endif

inline unsigned int corpusCount(unsigned int full) {
  const char* env = std::getenv("QELCORE_FULL_CORPUS");
  if (env && std::strcmp(env, "1") == 0) return full;
  return full / CorpusDivisor;
}

}  // namespace qeltest

#endif
