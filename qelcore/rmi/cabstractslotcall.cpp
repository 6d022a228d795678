#include "qelcore/rmi/cabstractslotcall.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cconnection.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptions.h"

namespace qrmi {

void cAbstractSlotCall::releaseHandle() {
  mpHandle->mpCall = nullptr;
}

bool cAbstractSlotCall::matchSlotOfObject(const cConnectable* object) const { return object == mpObject; }

void cAbstractSlotCall::call(qsa::cAbstractDeserializer&, qsa::cAbstractSerializer&) const {
  QEL_DEBUG("DummyCall (2)");
}

void cAbstractSlotCall::call(qsa::cReferenceFrame&) const { QEL_DEBUG("DummyCall (1)"); }

void cAbstractSlotCall::reAssign(cAbstractSignal* signal) {
  if (mbAttached && signal) mpObject->reAssign(*mpSignal, *signal);
}

const qstd::cAsciiString& cAbstractSlotCall::publicSlotName() const {
  if (!mpPublicSlot) cRMIExceptions::throwNotPublicSlot();
  return mpPublicSlot->name();
}

}  // namespace qrmi
