/// \class qstd::cTimer
/// A timer that signals once after an interval or periodically, driven by a
/// work on the system's main work queue.
///
/// \code
///   class cBlinker : public qrmi::cConnectable {
///   public:
///     cBlinker() { mTimer.sigElapsed.connect(*this, &cBlinker::sltBlink); mTimer.setInterval(500); }
///     qsa::piVoid sltBlink();
///   private:
///     qstd::cTimer mTimer;
///   };
/// \endcode
///
/// \code
///   qstd::cTimer once;
///   once.setSingleShot(100);
///   ...                          // the main loop runs
///   if (once.isElapsed()) ...    // true from the firing until reset()
/// \endcode
///
/// A single-shot timer stays elapsed until setInterval, setSingleShot or
/// reset. A periodic timer is elapsed only while its signal is emitted.
///
/// The two constructors differ on purpose: only cTimer() connects the timer
/// to its work. cTimer(interval) starts a nameless periodic work that reaches
/// no slot of the timer, so that timer never fires.
#ifndef QELCORE_STD_CTIMER_H
#define QELCORE_STD_CTIMER_H

#include "qelcore/pi/cwork.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"

namespace qpi {
namespace detail {
class cLifeLink;
}
}  // namespace qpi

namespace qstd {

class QEL_EXPORT cTimer : public qrmi::cConnectable {
public:
  /// Stopped; connected to its work (see the class comment).
  cTimer();
  /// A periodic work of `interval` ms that reaches no slot of the timer: this timer never fires.
  explicit cTimer(unsigned int interval);
  ~cTimer() override;

  /// Emitted each time the timer fires.
  qrmi::localSignal0<qsa::piVoid> sigElapsed;

  /// Fires every `ms` milliseconds from now on.
  void setInterval(unsigned int ms);
  /// Fires once, `ms` milliseconds from now.
  void setSingleShot(unsigned int ms);
  /// Stops the timer and clears the elapsed flag.
  void reset();

  /// Whether the timer has fired (see the class comment for how long it stays so).
  bool isElapsed() const { return mbElapsed; }
  /// isElapsed().
  bool operator()() const { return mbElapsed; }
  /// The work that drives the timer.
  const qpi::cWork& work() const { return mWork; }

private:
  qsa::piVoid sltPoll();
  void startWork(unsigned int ms, qpi::cWork::Type type);

  bool mbElapsed;
  qpi::cWork mWork;
  /// Running sltPoll calls; a receiver of sigElapsed may destroy the timer.
  qpi::detail::cLifeLink* mpRuns;
};

}  // namespace qstd

#endif
