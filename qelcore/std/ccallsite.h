// The source file and line a function was called from. As a default
// argument, cCallSite::here() is filled in with the position of the call, so
// the throw functions report where they were called without every caller
// writing __FILE__ and __LINE__:
//
//   [[noreturn]] static void throwFileLocked(const qucs::cString& path,
//                                            qstd::cCallSite at = qstd::cCallSite::here());
//   ...
//   throw cFileLockedException(path, at.file, at.line);
#ifndef QELCORE_STD_CCALLSITE_H
#define QELCORE_STD_CCALLSITE_H

namespace qstd {

struct cCallSite {
  const char* file;
  unsigned int line;

  static constexpr cCallSite here(const char* file = __builtin_FILE(), unsigned int line = __builtin_LINE()) {
    return cCallSite{file, line};
  }
};

}  // namespace qstd

#endif
