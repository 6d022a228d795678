#include "qelcore/pi/cabstractprocessevents.h"

#include "qelcore/pi/cwork.h"

namespace qpi {

cAbstractProcessEvents::cAbstractProcessEvents() {
  sigFinished.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

cAbstractProcessEvents::~cAbstractProcessEvents() {}

void cAbstractProcessEvents::poll() {}

void cAbstractProcessEvents::wakeUpFromAnyThread() {}

}  // namespace qpi
