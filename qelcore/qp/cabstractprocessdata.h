/// \class qp::cAbstractProcessData
/// The shared flags of a process: running, finished, canceled. The process
/// sets them; other code (another thread, say) reads them or cancels.
///
/// \code
///   qp::cBasicProcessData data;
///   cMyPollable job(data);        // binds the data to the job
///   data.cancel();                // ask the job to give up
///   if (data.isFinished()) ...
/// \endcode
///
/// The flags are read and written under the first context locker when the
/// process that the data is bound to has one; a polled process has none and
/// keeps everything on the main thread.
#ifndef QELCORE_QP_CABSTRACTPROCESSDATA_H
#define QELCORE_QP_CABSTRACTPROCESSDATA_H

#include "qelcore/qelexport.h"
#include "qelcore/qp/cabstractprocess.h"

namespace qp {

class cLocker;

class QEL_EXPORT cAbstractProcessData {
public:
  /// How the process runs (see cAbstractProcess::Context).
  typedef cAbstractProcess::Context Context;

  /// Not running, not bound; `locker` (not owned, may be null) guards the
  /// flags when threads share them.
  explicit cAbstractProcessData(cLocker* locker = nullptr);
  cAbstractProcessData(const cAbstractProcessData&) = delete;
  cAbstractProcessData& operator=(const cAbstractProcessData&) = delete;
  virtual ~cAbstractProcessData();

  /// Marks the process as running again: running set, finished and canceled
  /// cleared.
  virtual void restart();

  /// Set by restart(), cleared by setFinished().
  bool isRunning() const;
  /// Set by setFinished(), cleared by restart().
  bool isFinished() const;
  /// Set by cancel(), cleared by restart().
  bool isCanceled() const;
  /// Finished, no longer running.
  void setFinished();
  /// Asks the process to give up; it reads isCanceled() and ends.
  void cancel();

  /// The process this data is bound to runs like this (ContextNone: bound to
  /// none).
  Context context() const { return meContext; }
  /// How the process would like to run; ContextThread by default.
  Context preferredContext() const { return mePreferred; }
  /// Changes the preference; the binding in force stays.
  void setPreferredContext(Context context) { mePreferred = context; }
  /// The locker given at construction.
  cLocker* locker() const { return mpLocker; }

private:
  friend class cAbstractProcess;
  void setContext(Context context, cLocker* first, cLocker* second);

  cLocker* mpLocker;
  cLocker* mpContextLocker;
  cLocker* mpContextLocker2;
  Context meContext;
  Context mePreferred;
  bool mbCanceled;
  bool mbFinished;
  bool mbRunning;
};

}  // namespace qp

#endif
