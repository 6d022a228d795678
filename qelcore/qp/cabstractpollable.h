/// \class qp::cAbstractPollable
/// A process that is driven by polling on the main thread (from a work, say)
/// instead of running on a thread of its own.
///
/// \code
///   class cScan : public qp::cAbstractPollable {
///   public:
///     explicit cScan(qp::cAbstractProcessData& d) : cAbstractPollable(d) {}
///     void step() { ...; if (done) processData().setFinished(); }
///   };
///   qp::cBasicProcessData data;
///   cScan scan(data);              // data.context() is now ContextPolled
///   cScan other(data);             // cBugException: data already in use
/// \endcode
///
/// One process data serves one process at a time: "Never use process data
/// for more than one process!". The data is free again when the process goes.
#ifndef QELCORE_QP_CABSTRACTPOLLABLE_H
#define QELCORE_QP_CABSTRACTPOLLABLE_H

#include "qelcore/qelexport.h"
#include "qelcore/qp/cabstractprocess.h"

namespace qp {

class QEL_EXPORT cAbstractPollable : public cAbstractProcess {
public:
  /// With process data of its own.
  cAbstractPollable();
  /// With `data`, which the caller keeps alive for as long as this process.
  explicit cAbstractPollable(cAbstractProcessData& data);
  ~cAbstractPollable() override;

  /// Asks the process to break off what it does. Does nothing here.
  virtual void interrupt(bool hard);
  /// True: a pollable process is polled on the main thread.
  virtual bool isPollable() const { return true; }
  /// False: it runs on no thread of its own.
  virtual bool isRunnable() const { return false; }
};

}  // namespace qp

#endif
