/// \class qpi::cLocalEventLoop
/// Marks a nested ("local") loop over a work queue, for code that must wait
/// inside a work's action, for example for a reply:
///
/// \code
///   qpi::cLocalEventLoop loop;          // the system's main queue
///   while (!replied) loop.process();    // runs the other due works meanwhile
/// \endcode
///
/// While a local loop exists, every change of a work wakes the queue's event
/// processor, so that a wait in the nested pass ends as soon as there is
/// something to do. If the queue dies first the loop detaches and process()
/// does nothing.
#ifndef QELCORE_PI_CLOCALEVENTLOOP_H
#define QELCORE_PI_CLOCALEVENTLOOP_H

#include "qelcore/qelexport.h"

namespace qpi {

class cWorkQueue;

class QEL_EXPORT cLocalEventLoop {
public:
  /// A null queue means the system's main work queue.
  explicit cLocalEventLoop(cWorkQueue* wq = nullptr);
  cLocalEventLoop(const cLocalEventLoop&) = delete;
  cLocalEventLoop& operator=(const cLocalEventLoop&) = delete;
  ~cLocalEventLoop();

  /// One process() of the queue.
  void process();
  /// Null once the queue has died.
  cWorkQueue* queue() const { return mpQueue; }

private:
  friend class cWorkQueue;

  cWorkQueue* mpQueue;
  /// The queue's other local loops.
  cLocalEventLoop* mpNext;
};

}  // namespace qpi

#endif
