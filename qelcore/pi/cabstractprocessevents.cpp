#include "qelcore/pi/cabstractprocessevents.h"

#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cwork.h"

namespace qpi {

cAbstractProcessEvents::cAbstractProcessEvents() {
  sigFinished.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

cAbstractProcessEvents::~cAbstractProcessEvents() {}

void cAbstractProcessEvents::poll() {}

void cAbstractProcessEvents::wakeUpFromAnyThread() {}

bool cAbstractProcessEvents::waitsWhenIdle() const { return false; }

cFDAIOData* cAbstractProcessEvents::waitingFDData(const qstd::tSharedObject<cWork>& entry) {
  cWork* w = entry.get();
  if (!w || !w->isStarted() || w->type() != cWork::AsyncIO || !w->hasAIOData()) return nullptr;
  cFDAIOData* data = w->aioData().isFDAIOData();
  if (data) data->clearReadyEvents();
  return data;
}

}  // namespace qpi
