/// \struct qstd::cCallSite
/// The source file and line a function was called from. As a default
/// argument, cCallSite::here() is filled in with the position of the call, so
/// the throw functions report where they were called without every caller
/// writing __FILE__ and __LINE__:
///
/// \code
///   [[noreturn]] static void throwFileLocked(const qucs::cString& path,
///                                            qstd::cCallSite at = qstd::cCallSite::here());
///   ...
///   throw cFileLockedException(path, at.file, at.line);
/// \endcode
#ifndef QELCORE_STD_CCALLSITE_H
#define QELCORE_STD_CCALLSITE_H

namespace qstd {

struct cCallSite {
  const char* file;  ///< the source file
  unsigned int line;  ///< the line in it

  /// The caller's position, as the compiler fills in the defaults.
  static constexpr cCallSite here(const char* file = __builtin_FILE(), unsigned int line = __builtin_LINE()) {
    return cCallSite{file, line};
  }
};

}  // namespace qstd

#endif
