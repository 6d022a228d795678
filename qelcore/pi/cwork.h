/// \class qpi::cWork
/// One unit of deferred work on a work queue (cWorkQueue): a single task that
/// runs once when its interval has passed, a periodic task, or an
/// asynchronous I/O task that runs when the I/O data it owns reports an event.
///
/// \code
/// class cSaver : public qrmi::cConnectable {
/// public:
///   qsa::piVoid sltSave() { ...; return qsa::piVoid(); }
/// };
/// qstd::tSharedObject<qpi::cWork> w = qpi::system().workQueue().createJob();
/// w->setName("autosave");
/// w->sigTrigger.connect(saver, &cSaver::sltSave);
/// w->start(5000, qpi::cWork::Periodic);     // every five seconds
/// \endcode
///
/// Running a work is action(): it emits sigTrigger. An exception that escapes
/// is offered to the work's own sigActionError handler or, failing that, to
/// the nearest ancestor's (the parent is the work that was running when this
/// one was added to its queue). A work whose action fails three times in a
/// row without a restart in between is "amuck" and is stopped by its queue.
/// A work with nothing connected to sigTrigger runs and does nothing.
///
/// Intervals are milliseconds. Works belong to the thread of their queue.
#ifndef QELCORE_PI_CWORK_H
#define QELCORE_PI_CWORK_H

#include "qelcore/pi/cworkstat.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/csmallobject.h"
#include "qelcore/std/ctime.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tparentwatch.h"

namespace qstd {
class cAbstractException;
}

namespace qpi {

class cAbstractAIOData;
class cWorkQueue;
namespace detail {
class cLifeLink;
struct cTriggerRoom;
}

// A queue makes and drops one work per scheduled task: works are small
// objects (derived works too).
class QEL_EXPORT cWork : public qstd::cSmallObject {
public:
  /// Run once, run every interval, or run on events of the I/O data.
  enum Type : unsigned int { SingleTask = 0, Periodic = 1, AsyncIO = 2 };

  /// A stopped single task without name.
  cWork();
  cWork(const cWork&) = delete;
  cWork& operator=(const cWork&) = delete;
  /// Emits sigDestroyed; the queues that hold the work by reference drop it.
  virtual ~cWork();

  /// Emitted by action(); connect the work's job here.
  qrmi::localSignal0<qsa::piVoid> sigTrigger;
  /// Emitted with the work itself whenever it is started, stopped or given
  /// new I/O data; the queue listens to recompute what is due.
  qrmi::localSignal1<qsa::piVoid, cWork*> sigChanged;
  /// Emitted from the destructor.
  qrmi::localSignal1<qsa::piVoid, const cWork&> sigDestroyed;
  /// Receives the exceptions that this work's action, or a descendant's, let
  /// escape: (the exception, whether it came from a descendant). Created on
  /// first use.
  qrmi::localSignal2<qsa::piVoid, const qstd::cAbstractException&, bool>& sigActionError();
  /// Whether sigActionError() exists and has a receiver.
  bool hasActionErrorHandler() const;

  /// Restarts with the stored interval and type: due `interval()` ms from now.
  void start();
  /// Restarts as a periodic work (any nonzero type) or as a single task
  /// (type 0, whose stored interval becomes 0) due `interval` ms from now.
  void start(unsigned int interval, Type type);
  /// No longer due; the queue keeps a stopped work only when isKeep().
  void stop();

  /// Whether the work is started (due at plannedTime()).
  bool isStarted() const { return mbStarted; }
  /// The kind of work.
  Type type() const { return meType; }
  /// The interval in milliseconds.
  unsigned int interval() const { return miInterval; }
  ///@{
  /// When the work was last (re)started, and when it becomes due.
  const qstd::cTime& scheduledTime() const { return mScheduled; }
  const qstd::cTime& plannedTime() const { return mPlanned; }
  ///@}
  /// The name; empty when none was set.
  const qstd::cAsciiString& name() const { return mpName ? *mpName : settleName(); }
  /// Sets the name.
  void setName(const qstd::cAsciiString& name);
  /// Sets the name from a C string (null: no name). A short name is kept
  /// inside the work and becomes a string only when name() is asked for, so
  /// that naming a work costs no allocation.
  void setName(const char* name);
  ///@{
  /// What the work counts about itself.
  cWorkStat& statistic() { return mStat; }
  const cWorkStat& statistic() const { return mStat; }
  ///@}
  /// Gives this work a debug record (see cWorkStat).
  void setDebug(bool on) { mStat.setDebug(on); }
  /// Works constructed from now on get a debug record (process-wide).
  static void enableDebug(bool on = true);
  /// The work that was current in its queue when this one was added; null
  /// when there was none or it has died since.
  cWork* parent() const { return mpParent ? mpParent->get() : nullptr; }
  /// Three failed actions in a row without a restart in between.
  bool isAmuck() const { return miAmuck > 2; }
  /// Kept in the queue while stopped: added by reference, periodic or I/O.
  bool isKeep() const { return mbForceKeep || meType == Periodic || meType == AsyncIO; }
  /// false: errors of this work are no longer offered to its ancestors (the
  /// link to the parent is cut); true keeps the link as it is.
  void setInheritErrorHandler(bool inherit);
  /// false: escaping exceptions go straight to the queue's caller.
  void setDelegateExceptions(bool delegate) { mbDelegate = delegate; }
  /// Whether escaping exceptions are offered to the error handlers (true by default).
  bool isDelegateExceptions() const { return mbDelegate; }

  /// Takes the data over and makes this an I/O work: started when there is
  /// data, stopped when data it had is replaced by none.
  void setAIOData(qstd::tAutoPtr<cAbstractAIOData> data);
  /// Whether the work owns I/O data.
  bool hasAIOData() const { return mpAIOData != nullptr; }
  ///@{
  /// cBugException "Work does not own asynchronous I/O data!" without data.
  cAbstractAIOData& aioData();
  const cAbstractAIOData& aioData() const;
  ///@}

  /// Runs the work: emits sigTrigger and delegates what escapes. A slot may
  /// destroy the work (a one-shot work that deletes itself, an owner that
  /// drops it): action() touches nothing of it afterwards, and an exception
  /// that escapes such a slot goes to the caller undelegated.
  virtual void action();

private:
  friend class cWorkQueue;
  friend struct detail::cTriggerRoom;

  void markDone() { mbStarted = false; }
  void internRestart(bool unused);
  void internRestart(unsigned int interval, bool periodic, bool unused);
  /// `now` is the caller's reading of the clock (a pass reads it once).
  void restart(unsigned int interval, Type type, const qstd::cTime& now);
  void reparent(cWork* parent);
  void setForceKeep(bool keep) { mbForceKeep = keep; }
  bool handleActionError(const qstd::cAbstractException& e, bool unused);
  const qstd::cAsciiString& settleName() const;

  qstd::cTime mScheduled;
  qstd::cTime mPlanned;
  Type meType;
  unsigned int miInterval;
  bool mbStarted;
  bool mbForceKeep;
  cAbstractAIOData* mpAIOData;
  qrmi::localSignal2<qsa::piVoid, const qstd::cAbstractException&, bool>* mpActionError;
  /// The name once it was asked for or is long; null while it is short
  /// and waits in macShortName (empty there: no name).
  mutable qstd::cAsciiString* mpName;
  cWorkStat mStat;
  unsigned int miAmuck;
  /// Made when the work first gets a parent: most works never have one,
  /// and a watch is a receiver of its own.
  qstd::tParentWatch<cWork>* mpParent;
  bool mbDelegate;
  /// Actions and passes running on this work now; cut by the destructor.
  detail::cLifeLink* mpRuns;
  /// The queue that keeps its entry for this work here (the first queue
  /// that holds it; null when none does), and that entry, which only that
  /// queue reads.
  cWorkQueue* mpEntryQueue;
  alignas(void*) unsigned char macEntry[3 * sizeof(void*)];
  /// Room for the slot call through which a queue listens to sigChanged, so
  /// that holding a work costs no allocation for it; in use while
  /// mbChangeSlot is set (by the first queue that finds it free).
  alignas(void*) unsigned char macChangeSlot[12 * sizeof(void*)];
  bool mbChangeSlot;
  /// Room for the slot call that schedule() makes for a member function and
  /// connects to sigTrigger of the work it has just created. sigTrigger owns
  /// it like any other slot call; deleting it only ends it, so it may be
  /// disconnected in any way and is ended at the latest when the signal dies.
  alignas(void*) unsigned char macTriggerSlot[12 * sizeof(void*)];
  enum : unsigned int { kShortName = 24 };
  char macShortName[kShortName];
};

}  // namespace qpi

#endif
