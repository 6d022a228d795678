/// \class qp::cAbstractRunnable
/// Code that runs on a thread of its own: derive, implement run(), start().
///
/// \code
///   class cCrunch : public qp::cAbstractRunnable {
///   public:
///     ~cCrunch() override { stop(); }
///   protected:
///     void run() override {
///       while (!isStopInProgress() && more()) step();
///     }
///   };
///   cCrunch crunch;
///   crunch.start();       // run() starts on a new thread
///   ...
///   crunch.stop();        // asks run() to return and waits for it
/// \endcode
///
/// States: 0 idle (never started), 1 starting, 2 running, 3 stop in
/// progress, 4 finished. run() is expected to watch isStopInProgress() and
/// return. stop() waits for the thread without a time limit; on Windows it
/// suspends the thread first, so there it must only be called once run() has
/// returned (state 4). Derived classes stop the runnable in their own
/// destructor: run() must not outlive the object it belongs to. An exception
/// that escapes run() is written to the debug output and ends the run.
/// Results go back to the main thread through qpi::cWorkQueue::post().
#ifndef QELCORE_QP_CABSTRACTRUNNABLE_H
#define QELCORE_QP_CABSTRACTRUNNABLE_H

#include "qelcore/qelexport.h"

namespace qp {

class QEL_EXPORT cAbstractRunnable {
public:
  /// The life of the runnable's thread, as state() reports it.
  enum State { Idle = 0, Starting = 1, Running = 2, StopInProgress = 3, Finished = 4 };

  cAbstractRunnable();
  cAbstractRunnable(const cAbstractRunnable&) = delete;
  cAbstractRunnable& operator=(const cAbstractRunnable&) = delete;
  /// Waits for a thread that is still there, as stop() does.
  virtual ~cAbstractRunnable();

  /// Starts run() on a new thread; a thread of an earlier start is stopped
  /// first. cOSErrorException when the system refuses a thread.
  void start();
  /// Asks run() to return (state 3) and waits for the thread. The state is
  /// 3 afterwards unless a thread ran out meanwhile (4): also an idle or a
  /// finished runnable reports a stop in progress until it is started again.
  void stop();

  /// One of State.
  int state() const;
  /// state() is Running.
  bool isRunning() const { return state() == Running; }
  /// Starting, running or stopping.
  bool isActive() const;

protected:
  /// The thread's work. Does nothing here.
  virtual void run();
  /// stop() waits for run() to return: run() checks this and ends.
  bool isStopInProgress() const { return state() == StopInProgress; }

private:
  struct cData;
  static void threadEntry(void* self);

  cData* mpData;
};

}  // namespace qp

#endif
