/// \class qpi::cAbstractProcessEvents
/// An event processor: what a work queue (cWorkQueue) waits through. The
/// queue decides what is due and how long nothing is due; the processor does
/// the waiting and emits sigFinished when a wait is over.
///
/// \code
///   qpi::cWorkQueue queue;
///   queue.setEvents(qpi::cPlatform::createProcessEvents());
/// \endcode
///
/// An idle queue (no started work) waits only in a processor that says so
/// (waitsWhenIdle(): the I/O processor of cPlatform::createAIOProcessEvents()
/// does); with the others process() returns at once and a loop over it spins.
///
/// Processors run on the queue's thread. wakeUp() is called from that thread
/// (by work changes inside a nested local loop); wakeUpFromAnyThread() is the
/// one operation another thread may call, to cut a wait short after handing a
/// work to the queue (cWorkQueue::post).
#ifndef QELCORE_PI_CABSTRACTPROCESSEVENTS_H
#define QELCORE_PI_CABSTRACTPROCESSEVENTS_H

#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/tlist.h"
#include "qelcore/std/tsharedobject.h"

namespace qpi {

class cFDAIOData;
class cWork;

class QEL_EXPORT cAbstractProcessEvents {
public:
  /// A queue's works, as the queue hands them to its processor. Entries of
  /// removed works are null until the queue purges them.
  typedef qstd::tList<qstd::tSharedObject<cWork>> tJobs;

  cAbstractProcessEvents();
  cAbstractProcessEvents(const cAbstractProcessEvents&) = delete;
  cAbstractProcessEvents& operator=(const cAbstractProcessEvents&) = delete;
  virtual ~cAbstractProcessEvents();

  /// Waits on the descriptors of asynchronous I/O works.
  virtual bool supportsAIO() const = 0;
  /// Drives the queue itself (poll()) instead of being driven by process().
  virtual bool isAsynchronous() const = 0;
  /// Waits up to `waitMs` for the queue at nesting `level` holding `jobs`,
  /// then emits sigFinished.
  virtual void yield(unsigned int level, tJobs& jobs, unsigned int waitMs) = 0;
  /// Ends a running wait early where the processor can.
  virtual void wakeUp() = 0;
  /// One step of an asynchronous processor. Does nothing here.
  virtual void poll();
  /// Thread-safe wake-up. Does nothing here: processors that cannot be woken
  /// from another thread see handed-over works at their next pass.
  virtual void wakeUpFromAnyThread();
  /// Whether the queue may wait here when a pass leaves nothing timed and
  /// nothing asynchronous. Such a processor is handed the longest wait and
  /// must end it on wakeUp(), on wakeUpFromAnyThread() and on its own
  /// events. false here: an idle queue does not wait in the processor, and
  /// process() returns at once.
  virtual bool waitsWhenIdle() const;

  /// Emitted when a wait is over.
  qrmi::localSignal0<qsa::piVoid> sigFinished;

protected:
  /// For processors with I/O support: the descriptor data of a started I/O
  /// work, its ready events cleared for the coming wait; null for any other
  /// entry.
  static cFDAIOData* waitingFDData(const qstd::tSharedObject<cWork>& entry);
};

}  // namespace qpi

#endif
