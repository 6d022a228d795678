/// \class qpi::cAbstractOut
/// The debug output: where diagnostic lines, warnings and stack traces go.
///
/// Every entry carries its text, a level and the source file and line of the
/// code that wrote it. A filter decides per level and source file what is
/// written; the process-wide output is cAbstractOut::current(). Tests install
/// an output of their own with install() to read back what was written.
#ifndef QELCORE_PI_CABSTRACTOUT_H
#define QELCORE_PI_CABSTRACTOUT_H

#include <cstdint>

#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cAbstractOut {
public:
  /// The level of an entry, from the most talkative up; LevelNone in a
  /// filter writes nothing.
  enum Level { LevelTrace = 0, LevelDebug = 1, LevelInfo = 2, LevelWarning = 3, LevelError = 4, LevelNone = 5 };

  /// Most return addresses a captured stack trace holds.
  enum : unsigned int { MaxBacktrace = 64 };

  /// A new output writes every level until setFilter() says otherwise.
  cAbstractOut();
  virtual ~cAbstractOut();
  cAbstractOut(const cAbstractOut&) = delete;
  cAbstractOut& operator=(const cAbstractOut&) = delete;

  /// Filter syntax (as in the environment variable "PIDBG_FILTER"): a comma
  /// separated list of items. A bare level ("trace", "debug", "info",
  /// "warning", "error", "none"; "all" means "trace") sets the level for every
  /// source file; "pattern=level" sets it for source files whose path contains
  /// the pattern. The longest matching pattern wins. Returns false (and keeps
  /// the filter unchanged) when the text is malformed.
  bool setFilter(const char* filter);
  /// Whether an entry of this level from this source file would be written.
  bool enabled(Level level, const char* file) const;

  /// Writes one entry when the filter lets it through.
  void write(Level level, const char* text, const char* file, unsigned int line);
  /// Writes one entry holding `header` followed by the rendered stack of the
  /// caller (skipping `skip` further frames).
  void writeStackTrace(Level level, const char* header, const char* file, unsigned int line, unsigned int skip = 0);
  /// Writes one entry holding `header` followed by the rendered frames.
  void writeBacktrace(Level level, const char* header, const std::uintptr_t* frames, unsigned int count,
                      const char* file, unsigned int line);

  /// Captures up to `max` return addresses of the calling thread's stack,
  /// innermost first, after skipping `skip` frames above the caller.
  static unsigned int captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip = 0);

  /// The process-wide output. Until something is installed this is a
  /// cDebugStdErr configured from "PIDBG_FILTER".
  static cAbstractOut& current();
  /// Makes `out` the process-wide output (not owned; null restores the
  /// standard error output) and returns the one it replaces.
  static cAbstractOut* install(cAbstractOut* out);

protected:
  /// Receives every entry that passed the filter. Called from any thread.
  virtual void writeEntry(Level level, const char* text, const char* file, unsigned int line) = 0;

private:
  class cFilterImpl;
  cFilterImpl* mpFilter;
};

}  // namespace qpi

// Convenience: the text expression is evaluated only when the entry is written.
#define QEL_DEBUG_OUT(level, text)                                           \
  do {                                                                       \
    ::qpi::cAbstractOut& qelOut_ = ::qpi::cAbstractOut::current();           \
    if (qelOut_.enabled(::qpi::cAbstractOut::level, __FILE__))               \
      qelOut_.write(::qpi::cAbstractOut::level, (text), __FILE__, __LINE__); \
  } while (0)
#define QEL_TRACE(text) QEL_DEBUG_OUT(LevelTrace, text)
#define QEL_DEBUG(text) QEL_DEBUG_OUT(LevelDebug, text)
#define QEL_INFO(text) QEL_DEBUG_OUT(LevelInfo, text)
#define QEL_WARNING(text) QEL_DEBUG_OUT(LevelWarning, text)
#define QEL_ERROR(text) QEL_DEBUG_OUT(LevelError, text)

#endif
