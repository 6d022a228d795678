/// \class qpi::cWorkQueue
/// The main loop: a queue of works (cWork) that runs the due ones and waits
/// through its event processor until the next one is due.
///
/// \code
/// qpi::cWorkQueue queue;
/// queue.setEvents(qpi::cPlatform::createProcessEvents());
/// qstd::tSharedObject<qpi::cWork> w = queue.createJob();
/// w->sigTrigger.connect(saver, &cSaver::sltSave);
/// w->start(100, qpi::cWork::SingleTask);
/// for (;;) queue.process();           // one pass and one wait per call
/// \endcode
///
/// The system object owns the application's main queue (qpi::system()
/// .workQueue(); qpi::schedule() adds to it).
///
/// A queue and its works belong to one thread and take no lock. Actions may
/// add, change and remove works while a pass runs, and may run nested passes
/// through a cLocalEventLoop. The list is therefore only ever marked while
/// passes may walk it: removeJob() and clear() let go of the work at once but
/// leave its entry in jobs() as a null entry, and a single task that ran and
/// was not restarted stays there, stopped. Such entries leave the list when
/// an outermost pass (level 1) that removed something itself ends: every pass
/// counts the null entries it meets as removed, so a process() after a
/// removal outside any pass purges them. Whoever walks jobs() meets null
/// entries; debugDump() shows them as " * zero item", the dot graph leaves
/// them out. The one exception to the single thread is post(), through which
/// any thread hands a work over to the queue.
///
/// When nothing is timed or asynchronous, a pass hands no wait to the two
/// plain processors (cLocalEventProcessor and the platform's): process()
/// returns at once, and a loop over an idle queue spins. The I/O processor of
/// cPlatform::createAIOProcessEvents() instead sleeps in a pass that ran
/// nothing, until post() from another thread wakes it. A pass that ran works
/// returns at once, so that a loop such as `while (!done) queue.process();`
/// sees what they did; a work started on the queue's own thread between two
/// process() calls runs in the next pass, before any sleep. See
/// cAbstractProcessEvents::waitsWhenIdle().
///
/// Works added by reference (addJob(cWork&)) are kept while stopped and leave
/// the queue by themselves when they die; shared works stay alive while the
/// queue holds them. The queue and its works may die in either order.
#ifndef QELCORE_PI_CWORKQUEUE_H
#define QELCORE_PI_CWORKQUEUE_H

#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tlist.h"
#include "qelcore/std/tsharedobject.h"

namespace qpi {

class cLocalEventLoop;
namespace detail {
class cLifeLink;
}

class QEL_EXPORT cWorkQueue : public qrmi::cConnectable {
public:
  /// The list of works: shared works, in the order they were added.
  typedef cAbstractProcessEvents::tJobs tJobs;

  cWorkQueue();
  ~cWorkQueue() override;

  /// Replaces the event processor; a null one clears the queue first. The
  /// queue asks the processor's isAsynchronous() and supportsAIO() here and
  /// at the start of each process(), not at every use.
  void setEvents(qstd::tAutoPtr<cAbstractProcessEvents> events);
  /// The event processor, null without one.
  cAbstractProcessEvents* events() const { return mpEvents.get(); }

  /// A new work, held by the queue; not started yet.
  qstd::tSharedObject<cWork> createJob();
  /// Adds a shared work (once; a work already held is not added again).
  void addJob(qstd::tSharedObject<cWork> work);
  /// Adds a work by reference: kept while stopped, dropped when it dies.
  void addJob(cWork& work);
  /// Lets go of the work: its entry becomes null and leaves the list with the
  /// next purge. The current work removed is current no longer.
  void removeJob(const cWork& work);
  /// Lets go of every work: all entries become null (see removeJob).
  void clear();

  /// One step of the main loop: runs the due works, then waits through the
  /// event processor until the next one is due. Without a processor a bug
  /// exception "No process event manager for workqueue!".
  void process();
  /// The work whose action runs now, or null.
  cWork* current() const { return mpCurrent; }
  /// Depth of the passes running now (1 inside an action, 2 inside a nested
  /// loop's action, ...).
  unsigned int level() const { return miLevel; }
  ///@{
  /// The list itself, null entries of removed works included (see above);
  /// change it through the functions above, which keep the queue's index of
  /// its works.
  tJobs& jobs() { return mJobs; }
  const tJobs& jobs() const { return mJobs; }
  ///@}
  /// Writes the queue's status to the debug output.
  void debugDump(cAbstractOut::Level level = cAbstractOut::LevelInfo) const;

  /// Hands a work over from any thread; the queue takes ownership and adds it
  /// at its next pass (the event processor is woken where it can be), as if
  /// through addJob with no parent. Start the work before posting it, or it
  /// will not run.
  void post(qstd::tAutoPtr<cWork> work);

private:
  friend class cLocalEventLoop;
  class cInbox;
  class cJobIndex;
  class cChangeSlot;

  unsigned int processEvents(bool doProcess);
  void updateNow();
  // Runs the due works, rescanning while asked to; false when an action
  // destroyed the queue. `lastWait`: the last pass's wait; mbExecuted: whether
  // a work ran.
  bool updateTimer(bool doProcess, unsigned int& lastWait);
  unsigned int internProcess(bool doProcess, unsigned int& executed);
  void checkEvents() const;
  void readCapabilities();
  void appendJob(const qstd::tSharedObject<cWork>& work);
  void listenTo(cWork& work);
  void append(const qstd::tSharedObject<cWork>& work);
  void dropEntry(const tJobs::iterator& entry);
  void drainInbox();

  qsa::piVoid sltNotifyWorkChanged(cWork* work);
  // sltNotifyWorkChanged() without the work's clock reading.
  void noteChange();
  qsa::piVoid sltNotifyPEFinished();
  qsa::piVoid sltWorkDestroyed(const cWork& work);

  qstd::tAutoPtr<cAbstractProcessEvents> mpEvents;
  tJobs mJobs;
  unsigned int miLevel;
  bool mbRescan;
  unsigned int miLocalLoops;
  unsigned int miClearing;
  cWork* mpCurrent;
  unsigned int miTimed;
  unsigned int miAsync;
  cLocalEventLoop* mpLoops;
  cInbox* mpInbox;
  /// The live entry of each work.
  cJobIndex* mpIndex;
  /// The passes running on this queue now; cut by the destructor.
  detail::cLifeLink* mpPasses;
  /// The latest reading of the clock this queue knows of.
  qstd::cTime mKnownNow;
  /// Whether the last updateTimer() ran a work.
  bool mbExecuted;
  /// What the processor answered to isAsynchronous() and supportsAIO() when
  /// it was set and at the start of the latest process().
  bool mbAsyncEvents;
  bool mbAIOEvents;
};

}  // namespace qpi

#endif
