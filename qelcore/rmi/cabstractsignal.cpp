#include "qelcore/rmi/cabstractsignal.h"

#include "qelcore/pi/cabstractout.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

void cAbstractSignal::unpublish() {
  cPublicSignal* record = mpPublicSignal;
  mpPublicSignal = nullptr;
  cConnectable::signalDestroyed(*record);
}

void cAbstractSignal::connectIndirect(cConnectable&, const qstd::cAsciiString&) {
  cRMIExceptions::throwIndirectLocalConnection();
}

void cAbstractSignal::setQueued(bool) {}

cPublicSignal& cAbstractSignal::exportSignal(cConnectable& owner, const qstd::cAsciiString& name, InterfaceType type,
                                             const qstd::cAsciiString& description) {
  cPublicSignal& signal =
      owner.registerSignal(name, returnTypeString(), parametersTypeString(), type, description, *this);
  describeValues(signal);
  return signal;
}

void cAbstractSignal::describeValues(cPublicSignal&) const {}

cSSValue& cAbstractSignal::addParameter(cPublicSignal& signal) { return signal.addParameter(); }
cSSValue& cAbstractSignal::returnValue(cPublicSignal& signal) { return signal.returnValue(); }

const qstd::cAsciiString& cAbstractSignal::publicSignalName() const {
  if (!mpPublicSignal) cRMIExceptions::throwNotPublicSignal();
  return mpPublicSignal->name();
}

qstd::cAsciiString cAbstractSignal::parametersTypeString() const { return qstd::cAsciiString(); }

qstd::cAsciiString cAbstractSignal::returnTypeString() const { return qstd::cAsciiString(); }

void cAbstractSignal::checkNIC(unsigned int emissionDepth) const {
  if (emissionDepth == 0) return;
  qpi::cAbstractOut& out = qpi::cAbstractOut::current();
  if (!out.enabled(qpi::cAbstractOut::LevelWarning, __FILE__)) return;
  out.write(qpi::cAbstractOut::LevelWarning, ">>>>>>>>> delete this situation in signal!", __FILE__, __LINE__);
  out.writeStackTrace(qpi::cAbstractOut::LevelWarning, "Stack trace:", __FILE__, __LINE__);
}

}  // namespace qrmi
