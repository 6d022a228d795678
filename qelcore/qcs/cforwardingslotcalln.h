/// \class qcs::cForwardingSlotCallN
/// A slot call that hands every call on to another, typed slot call: how a
/// dependency's local interface reaches a public slot that a provider in this
/// process published with the same C++ signature. The receiver is the
/// provided interface, so the connection ends when that interface dies or is
/// cleared (which are also the only ways its public slots are deleted).
#ifndef QELCORE_QCS_CFORWARDINGSLOTCALLN_H
#define QELCORE_QCS_CFORWARDINGSLOTCALLN_H

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"

namespace qcs {

template <class R, class... A>
class cForwardingSlotCallN : public qrmi::cAbstractSlotCallN<R, A...> {
public:
  /// The slot call forwarded to (and this one's base).
  typedef qrmi::cAbstractSlotCallN<R, A...> tTarget;

  /// `target` must belong to a public slot of `receiver`.
  cForwardingSlotCallN(qrmi::cConnectable& receiver, const tTarget& target, qrmi::cAbstractSignal* signal = nullptr)
      : tTarget(receiver, signal), mpTarget(&target) {}

  /// Calls the target with the arguments.
  void invoke(R& result, A... args) const override { mpTarget->invoke(result, args...); }
  /// Calls the target with archived arguments, archiving its result.
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const override { mpTarget->call(in, out); }
  /// Calls the target with the arguments of a reference frame.
  void call(qsa::cReferenceFrame& frame) const override { mpTarget->call(frame); }

  /// The slot call forwarded to.
  const tTarget& target() const { return *mpTarget; }

private:
  const tTarget* mpTarget;
};

}  // namespace qcs

#endif
