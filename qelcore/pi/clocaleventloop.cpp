#include "qelcore/pi/clocaleventloop.h"

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"

namespace qpi {

cLocalEventLoop::cLocalEventLoop(cWorkQueue* wq) : mpQueue(wq ? wq : &system().workQueue()), mpNext(nullptr) {
  ++mpQueue->miLocalLoops;
  mpNext = mpQueue->mpLoops;
  mpQueue->mpLoops = this;
}

cLocalEventLoop::~cLocalEventLoop() {
  if (!mpQueue) return;
  --mpQueue->miLocalLoops;
  for (cLocalEventLoop** link = &mpQueue->mpLoops; *link; link = &(*link)->mpNext)
    if (*link == this) {
      *link = mpNext;
      break;
    }
}

void cLocalEventLoop::process() {
  if (mpQueue) mpQueue->process();
}

}  // namespace qpi
