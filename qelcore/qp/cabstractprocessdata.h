// The shared flags of a process: running, finished, canceled. The process
// sets them; other code (another thread, say) reads them or cancels.
//
//   qp::cBasicProcessData data;
//   cMyPollable job(data);        // binds the data to the job
//   data.cancel();                // ask the job to give up
//   if (data.isFinished()) ...
//
// The flags are read and written under the first context locker when the
// process that the data is bound to has one; a polled process has none and
// keeps everything on the main thread.
#ifndef QELCORE_QP_CABSTRACTPROCESSDATA_H
#define QELCORE_QP_CABSTRACTPROCESSDATA_H

#include "qelcore/qelexport.h"
#include "qelcore/qp/cabstractprocess.h"

namespace qp {

class cLocker;

class QEL_EXPORT cAbstractProcessData {
public:
  typedef cAbstractProcess::Context Context;

  explicit cAbstractProcessData(cLocker* locker = nullptr);
  cAbstractProcessData(const cAbstractProcessData&) = delete;
  cAbstractProcessData& operator=(const cAbstractProcessData&) = delete;
  virtual ~cAbstractProcessData();

  // Marks the process as running again: running set, finished and canceled
  // cleared.
  virtual void restart();

  bool isRunning() const;
  bool isFinished() const;
  bool isCanceled() const;
  // Finished, no longer running.
  void setFinished();
  void cancel();

  // The process this data is bound to runs like this (ContextNone: bound to
  // none).
  Context context() const { return meContext; }
  Context preferredContext() const { return mePreferred; }
  void setPreferredContext(Context context) { mePreferred = context; }
  // The locker given at construction.
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
