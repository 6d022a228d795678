/// \class qpi::cWorkStat
/// What a work (cWork) counts about itself: how often it was started and
/// triggered and, with debugging enabled, when that last happened and from
/// where it was last started.
///
/// \code
/// work.statistic().setDebug(true);       // or cWork::enableDebug() for all new works
/// work.start(10, qpi::cWork::SingleTask);
/// work.statistic().numStarted();         // 1
/// work.statistic().debugInfo()->lastStart;
/// \endcode
#ifndef QELCORE_PI_CWORKSTAT_H
#define QELCORE_PI_CWORKSTAT_H

#include <cstdint>

#include "qelcore/qelexport.h"
#include "qelcore/std/ctime.h"

namespace qpi {

class QEL_EXPORT cWorkStat {
public:
  /// Most return addresses kept of the last start.
  enum : unsigned int { MaxStartTrace = 128 };

  /// Kept only while debugging is on.
  struct cDebugInfo {
    /// When the last start happened.
    qstd::cTime lastStart{0ull};
    /// When the last trigger happened.
    qstd::cTime lastTrigger{0ull};
    /// Return addresses of the last start's stack.
    std::uintptr_t startTrace[MaxStartTrace];
    /// How many entries of startTrace are set.
    unsigned int startTraceLength = 0;
  };

  /// Counts from 0; with `debug` there is a debug record from the start.
  explicit cWorkStat(bool debug = false) : miStarted(0), miTriggered(0), mpDebug(nullptr) {
    if (debug) setDebug(true);
  }
  cWorkStat(const cWorkStat&) = delete;
  cWorkStat& operator=(const cWorkStat&) = delete;
  ~cWorkStat() {
    if (mpDebug) setDebug(false);
  }

  /// How often the work was started.
  unsigned int numStarted() const { return miStarted; }
  /// How often it was triggered.
  unsigned int numTriggered() const { return miTriggered; }
  /// Whether there is a debug record.
  bool hasDebugInfo() const { return mpDebug != nullptr; }
  /// Null while debugging is off.
  const cDebugInfo* debugInfo() const { return mpDebug; }
  /// Creates or drops the debug record.
  void setDebug(bool on);

  /// A start: counted, and with debugging the time and the caller's stack.
  void notifyStart() {
    ++miStarted;
    if (mpDebug) recordStart();
  }
  /// A trigger: counted, and with debugging its time kept.
  void notifyTrigger() {
    ++miTriggered;
    if (mpDebug) mpDebug->lastTrigger = qstd::cTime();
  }

private:
  void recordStart();

  unsigned int miStarted;
  unsigned int miTriggered;
  cDebugInfo* mpDebug;
};

}  // namespace qpi

#endif
