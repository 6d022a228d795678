#include "qelcore/pi/schedule.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qelinline.h"

namespace qpi {

qstd::tSharedObject<cWork> schedule(const qrmi::cAbstractSlotCall0<qsa::piVoid>& slot, unsigned int interval,
                                    cWork::Type type, const char* name) {
  return detail::scheduleCall(slot.clone(), interval, type, name);
}

namespace {

typedef qstd::tAutoPtr<qrmi::cAbstractSlotCall0<qsa::piVoid>> tOwnedCall;

// scheduleCall()'s "make": hands over the slot call it was given.
qrmi::cAbstractSlotCall0<qsa::piVoid>* handOver(void*, const void* call) {
  return const_cast<tOwnedCall*>(static_cast<const tOwnedCall*>(call))->release();
}

// The debug lines of a work scheduled without name. Out of line: the stack
// trace's room would widen every scheduling's frame.
QEL_NOINLINE void noteUnnamed() {
  QEL_DEBUG("Work scheduled without name!");
  cAbstractOut& out = cAbstractOut::current();
  if (out.enabled(cAbstractOut::LevelDebug, __FILE__)) {
    std::uintptr_t frames[cWorkStat::MaxStartTrace];
    const unsigned int n = cAbstractOut::captureBacktrace(frames, cWorkStat::MaxStartTrace);
    out.writeBacktrace(cAbstractOut::LevelDebug, "Scheduled from:", frames, n, __FILE__, __LINE__);
  }
}

}  // namespace

qstd::tSharedObject<cWork> detail::scheduleCall(qrmi::cAbstractSlotCall0<qsa::piVoid>* slot, unsigned int interval,
                                                cWork::Type type, const char* name) {
  tOwnedCall call(slot);  // freed here should the work not come about
  return scheduleInRoom(&handOver, &call, interval, type, name);
}

qstd::tSharedObject<cWork> detail::scheduleInRoom(tMakeTriggerSlot make, const void* args, unsigned int interval,
                                                  cWork::Type type, const char* name) {
  qstd::tSharedObject<cWork> work = system().workQueue().createJob();
  cWork* const w = work.rawObject();  // just made, alive
  if (!name)
    noteUnnamed();
  else
    w->setName(name);
  // The work is new: its room is free. Once connected, sigTrigger ends the
  // slot call whichever way it goes (also if connecting throws). Nobody asks
  // for the connection's handle.
  if (qrmi::cAbstractSlotCall0<qsa::piVoid>* call = make(cTriggerRoom::of(*w), args))
    w->sigTrigger.connectWithoutHandle(call);
  else
    w->sigTrigger.connect(tOwnedCall());  // no slot call: connect()'s bug exception
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
