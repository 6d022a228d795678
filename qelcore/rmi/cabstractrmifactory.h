/// \class qrmi::cAbstractRMIFactory
/// Creates the local stand-ins for a peer's public slots and signals. The
/// transport that connects two processes supplies it.
#ifndef QELCORE_RMI_CABSTRACTRMIFACTORY_H
#define QELCORE_RMI_CABSTRACTRMIFACTORY_H

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qrmi {

class cAbstractSignal;
class cAbstractSlotCall;
class cConnectable;
class cPublicSignal;
class cPublicSlot;

class QEL_EXPORT cAbstractRMIFactory {
public:
  virtual ~cAbstractRMIFactory();

  /// A slot call (receiver `owner`, no signal) that carries calls of the
  /// peer's public slot `description` to the peer.
  virtual qstd::tAutoPtr<cAbstractSlotCall> createSlotCall(cConnectable& owner, const cPublicSlot& description) = 0;
  /// A signal of `owner` that stands for the peer's public signal `description`.
  virtual qstd::tAutoPtr<cAbstractSignal> createSignal(cConnectable& owner, const cPublicSignal& description) = 0;
};

}  // namespace qrmi

#endif
