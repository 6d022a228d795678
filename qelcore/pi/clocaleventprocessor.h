/// \class qpi::cLocalEventProcessor
/// A portable event processor that waits in one-millisecond sleeps and can be
/// woken. It only ever waits while its queue holds no work at all; a queue
/// with works is driven by its caller's repeated process() calls, and each
/// yield() returns at once.
///
/// \code
///   qpi::cWorkQueue queue;
///   queue.setEvents(qstd::tAutoPtr<qpi::cAbstractProcessEvents>(new qpi::cLocalEventProcessor));
/// \endcode
#ifndef QELCORE_PI_CLOCALEVENTPROCESSOR_H
#define QELCORE_PI_CLOCALEVENTPROCESSOR_H

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cLocalEventProcessor : public cAbstractProcessEvents {
public:
  cLocalEventProcessor() : mbWake(false) {}
  ~cLocalEventProcessor() override;

  bool supportsAIO() const override { return false; }
  bool isAsynchronous() const override { return false; }
  void yield(unsigned int level, tJobs& jobs, unsigned int waitMs) override;
  /// Ends the running wait after the current one-millisecond sleep.
  void wakeUp() override { mbWake = true; }

private:
  bool mbWake;
};

}  // namespace qpi

#endif
