// The Windows event processor with asynchronous I/O: waits with WSAPoll on
// the sockets of the queue's started I/O works and on one end of a loopback
// socket pair through which other threads wake it, for at most the queue's
// wait.
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32AIOPROCESSEVENTS_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32AIOPROCESSEVENTS_H

#include <vector>
#include <winsock2.h>

#include "qelcore/pi/cabstractprocessevents.h"

namespace qpi {

class cFDAIOData;

class cWin32AIOProcessEvents : public cAbstractProcessEvents {
public:
  cWin32AIOProcessEvents();
  ~cWin32AIOProcessEvents() override;

  bool supportsAIO() const override { return true; }
  bool isAsynchronous() const override { return false; }
  // An idle queue sleeps here until a work is posted or woken for, when the
  // wake-up socket pair exists (else it could not be woken).
  bool waitsWhenIdle() const override { return mWakeRead != INVALID_SOCKET; }
  void yield(unsigned int level, tJobs& jobs, unsigned int waitMs) override;
  // The next wait does not block.
  void wakeUp() override { mbWake = true; }
  void wakeUpFromAnyThread() override;

private:
  struct cWatch {
    cFDAIOData* data;
    unsigned int index;
  };

  bool mbStarted;
  bool mbWake;
  SOCKET mWakeRead;
  SOCKET mWakeWrite;
  std::vector<WSAPOLLFD> mvPoll;
  std::vector<cWatch> mvWatches;
};

}  // namespace qpi

#endif
