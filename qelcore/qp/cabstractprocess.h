/// \class qp::cAbstractProcess
/// A process: something that runs until it is finished or canceled, with its
/// flags kept in process data (cAbstractProcessData) that others may watch.
/// A default-constructed process keeps process data of its own
/// (cBasicProcessData); otherwise it works on data it is given, which must
/// outlive it.
#ifndef QELCORE_QP_CABSTRACTPROCESS_H
#define QELCORE_QP_CABSTRACTPROCESS_H

#include "qelcore/qelexport.h"

namespace qp {

class cAbstractProcessData;

class QEL_EXPORT cAbstractProcess {
public:
  /// How a process runs: not bound yet, polled on the main thread, or on a
  /// thread of its own (the default preference).
  enum Context : unsigned int { ContextNone = 0, ContextPolled = 1, ContextThread = 2 };

  /// With process data of its own.
  cAbstractProcess();
  /// With `data`, which the caller keeps alive for as long as this process.
  explicit cAbstractProcess(cAbstractProcessData& data);
  cAbstractProcess(const cAbstractProcess&) = delete;
  cAbstractProcess& operator=(const cAbstractProcess&) = delete;
  /// Releases the data for another process.
  virtual ~cAbstractProcess();

  /// Whether the process data says running.
  bool isRunning() const;
  /// Whether the process data says finished.
  bool isFinished() const;

protected:
  /// The data: its own, or the one given to the constructor.
  cAbstractProcessData& processData() const { return *mpData; }
  /// Binds the data to this process in `context`, without context lockers.
  void bindData(Context context);

private:
  cAbstractProcessData* mpOwned;
  cAbstractProcessData* mpData;
  bool mbBound;
};

}  // namespace qp

#endif
