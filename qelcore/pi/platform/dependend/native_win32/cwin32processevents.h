// The Windows platform event processor: sleeps through the whole wait of a
// pass in one call and cannot be woken early.
#ifndef QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32PROCESSEVENTS_H
#define QELCORE_PI_PLATFORM_NATIVE_WIN32_CWIN32PROCESSEVENTS_H

#include "qelcore/pi/cabstractprocessevents.h"

namespace qpi {

class cWin32ProcessEvents : public cAbstractProcessEvents {
public:
  bool supportsAIO() const override { return false; }
  bool isAsynchronous() const override { return false; }
  void yield(unsigned int level, tJobs& jobs, unsigned int waitMs) override;
  void wakeUp() override {}
  void poll() override {}
};

}  // namespace qpi

#endif
