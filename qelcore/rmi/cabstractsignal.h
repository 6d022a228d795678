/// \class qrmi::cAbstractSignal
/// The untyped part of every signal: what an emission without receivers
/// does, whether the signal is published, and the operations through which a
/// receiver detaches itself.
#ifndef QELCORE_RMI_CABSTRACTSIGNAL_H
#define QELCORE_RMI_CABSTRACTSIGNAL_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
}

namespace qrmi {

class cAbstractSlotCall;
class cConnectable;
class cPublicSignal;
class cSSValue;

class QEL_EXPORT cAbstractSignal {
public:
  /// What an emission finds when nothing is connected.
  enum InvocationBehavior : unsigned int {
    eMustBeConnected = 0,  ///< throw cUnconnectedSignalException
    eMayBeUnconnected = 1  // any nonzero value: return a default result
  };
  /// The side of an interface a published signal belongs to.
  enum InterfaceType : unsigned int { eProvidedInterface = 0, eRequiredInterface = 1 };

  cAbstractSignal() : meBehavior(eMustBeConnected), mpPublicSignal(nullptr) {}
  /// A signal whose unconnected emissions do what `behavior` says.
  explicit cAbstractSignal(InvocationBehavior behavior) : meBehavior(behavior), mpPublicSignal(nullptr) {}
  cAbstractSignal(const cAbstractSignal&) = delete;
  cAbstractSignal& operator=(const cAbstractSignal&) = delete;
  /// A published signal takes its description out of its owner's interface.
  virtual ~cAbstractSignal() {
    if (mpPublicSignal) unpublish();
  }

  /// Removes and destroys every slot call whose receiver is `object`; returns
  /// whether one was removed.
  virtual bool disconnectObject(const cConnectable& object) = 0;
  /// Connects the public slot `slotName` of `object` through serialized
  /// arguments. Signals bound to C++ types refuse it (a bug exception).
  virtual void connectIndirect(cConnectable& object, const qstd::cAsciiString& slotName);
  /// The public form of disconnectObject.
  virtual bool disconnect(const cConnectable& object) = 0;
  /// Whether emissions should be delivered through the receiver's work queue
  /// where the signal can do that; signals that always call directly ignore it.
  virtual void setQueued(bool queued);

  /// Publishes the signal under `name` in `owner`'s interface; the type strings
  /// come from the signal's C++ types. Returns the new description, which
  /// lives until the signal or the owner's public signals go (clear() or its
  /// destruction). A signal is published once at a time: a second export is a
  /// bug exception.
  cPublicSignal& exportSignal(cConnectable& owner, const qstd::cAsciiString& name, InterfaceType type,
                              const qstd::cAsciiString& description);
  /// A bug exception for a signal that was never exported.
  const qstd::cAsciiString& publicSignalName() const;
  /// Records the signal's public description (exportSignal() does it).
  void setPublicSignal(cPublicSignal* signal) { mpPublicSignal = signal; }
  /// The public description, or null for a signal that is not exported.
  cPublicSignal* isPublicSignal() const { return mpPublicSignal; }

  /// What emitting without connections does.
  void setInvocationBehavior(InvocationBehavior behavior) { meBehavior = behavior; }
  /// See setInvocationBehavior().
  InvocationBehavior invocationBehavior() const { return meBehavior; }

protected:
  /// The type string of the parameter list (see tTypeString).
  virtual qstd::cAsciiString parametersTypeString() const;
  /// The type string of the result.
  virtual qstd::cAsciiString returnTypeString() const;
  /// Adds the descriptions of the parameters and the result when exported.
  virtual void describeValues(cPublicSignal& signal) const;
  ///@{
  /// The description's next parameter and its result, for describeValues().
  static cSSValue& addParameter(cPublicSignal& signal);
  static cSSValue& returnValue(cPublicSignal& signal);
  ///@}
  /// Warns (with a stack trace) when the signal is destroyed while
  /// `emissionDepth` emissions of it are still running.
  void checkNIC(unsigned int emissionDepth) const;
  /// Makes `call` one of this signal's connections: its receiver gets an
  /// entry for this signal, which the slot call's destruction takes away.
  /// Every signal calls it before it stores a slot call. Defined with
  /// cConnectable, whose bookkeeping it needs, so that connecting costs no
  /// call.
  inline void adopt(cAbstractSlotCall& call);

private:
  void unpublish();

  InvocationBehavior meBehavior;
  cPublicSignal* mpPublicSignal;
};

}  // namespace qrmi

#endif
