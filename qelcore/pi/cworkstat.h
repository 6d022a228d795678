// What a work (cWork) counts about itself: how often it was started and
// triggered and, with debugging enabled, when that last happened and from
// where it was last started.
//
//   work.statistic().setDebug(true);       // or cWork::enableDebug() for all new works
//   work.start(10, qpi::cWork::SingleTask);
//   work.statistic().numStarted();         // 1
//   work.statistic().debugInfo()->lastStart;
#ifndef QELCORE_PI_CWORKSTAT_H
#define QELCORE_PI_CWORKSTAT_H

#include <cstdint>

#include "qelcore/qelexport.h"
#include "qelcore/std/ctime.h"

namespace qpi {

class QEL_EXPORT cWorkStat {
public:
  // Most return addresses kept of the last start.
  enum : unsigned int { MaxStartTrace = 128 };

  // Kept only while debugging is on.
  struct cDebugInfo {
    qstd::cTime lastStart{0ull};
    qstd::cTime lastTrigger{0ull};
    std::uintptr_t startTrace[MaxStartTrace];
    unsigned int startTraceLength = 0;
  };

  explicit cWorkStat(bool debug = false);
  cWorkStat(const cWorkStat&) = delete;
  cWorkStat& operator=(const cWorkStat&) = delete;
  ~cWorkStat();

  unsigned int numStarted() const { return miStarted; }
  unsigned int numTriggered() const { return miTriggered; }
  bool hasDebugInfo() const { return mpDebug != nullptr; }
  // Null while debugging is off.
  const cDebugInfo* debugInfo() const { return mpDebug; }
  // Creates or drops the debug record.
  void setDebug(bool on);

  // A start: counted, and with debugging the time and the caller's stack.
  void notifyStart() {
    ++miStarted;
    if (mpDebug) recordStart();
  }
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
