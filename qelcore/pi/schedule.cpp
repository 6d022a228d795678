#include "qelcore/pi/schedule.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"

namespace qpi {

qstd::tSharedObject<cWork> schedule(const qrmi::cAbstractSlotCall0<qsa::piVoid>& slot, unsigned int interval,
                                    cWork::Type type, const char* name) {
  return detail::scheduleCall(slot.clone(), interval, type, name);
}

qstd::tSharedObject<cWork> detail::scheduleCall(qrmi::cAbstractSlotCall0<qsa::piVoid>* slot, unsigned int interval,
                                                cWork::Type type, const char* name) {
  qstd::tAutoPtr<qrmi::cAbstractSlotCall0<qsa::piVoid>> call(slot);
  qstd::tSharedObject<cWork> work = system().workQueue().createJob();
  cWork* const w = work.get();
  if (!name) {
    QEL_DEBUG("Work scheduled without name!");
    cAbstractOut& out = cAbstractOut::current();
    if (out.enabled(cAbstractOut::LevelDebug, __FILE__)) {
      std::uintptr_t frames[cWorkStat::MaxStartTrace];
      const unsigned int n = cAbstractOut::captureBacktrace(frames, cWorkStat::MaxStartTrace);
      out.writeBacktrace(cAbstractOut::LevelDebug, "Scheduled from:", frames, n, __FILE__, __LINE__);
    }
  } else {
    w->setName(name);
  }
  w->sigTrigger.connect(call);
  w->start(interval, type);
  return work;
}

qstd::tSharedObject<cWork> schedule(const qrmi::cAbstractSlotCall0<qsa::piVoid>& slot, unsigned int interval,
                                    const char* name) {
  return schedule(slot, interval, cWork::SingleTask, name);
}

qstd::tSharedObject<cWork> schedule(qstd::tAutoPtr<cWork> work) {
  qstd::tSharedObject<cWork> shared(work);
  system().workQueue().addJob(shared);
  return shared;
}

cWork& schedule(cWork& work) {
  system().workQueue().addJob(work);
  return work;
}

void unschedule(cWork& work) {
  if (cSystem::exists()) system().workQueue().removeJob(work);
}

}  // namespace qpi
